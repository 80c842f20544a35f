// The file of samples: what went in comes out, and what differs is found.
#include <gtest/gtest.h>

#include <cmath>

#include "host/store/SampleFile.h"
#include "host/store/StoredDevice.h"
#include "kit/Workdir.h"
#include "platform/framework/Text.h"

namespace {

enum Column { Flag, Count, Force, Letter, Note, Columns };
constexpr std::uint32_t Types[] = {KelvarinBool, KelvarinInt64, KelvarinDouble, KelvarinChar16,
                                   KelvarinString};

// What a device is given but for one thing.
struct Change {
    int Rows = 40'000;  // two chunks, the last one partly filled
    int Row = -1;       // where something else comes, for one column:
    Column In = Flag;
    bool IsGap = false;            // no value, or else another one
    std::int64_t LaterBy = 0;      // the row's time, in nanoseconds
    const char16_t* Unit = u"kN";  // of Force
    const char16_t* Symbol = u"F/x";
    bool HasNote = true;
    std::uint32_t ForceType = KelvarinDouble;
    const char* MetaData = "a";  // of Force
    const char16_t* Description = u"Text";
    int FirstColumn = 1;  // in the source
};

// The bytes of a sample; nothing for one without a value. Count and Force have chunks that pack in every way:
// noise, what repeats, small numbers.
std::optional<std::string> ValueAt(Column column, int row, const Change& change) {
    const bool isChanged = row == change.Row && column == change.In;
    const bool isGap = column != Flag && row >= 34'000 && row < 34'010 && row % 2 == 0;
    if (isGap != (isChanged && change.IsGap)) return std::nullopt;
    const auto bytes = [](auto value) {
        return std::string(reinterpret_cast<const char*>(&value), sizeof value);
    };
    const auto noise = static_cast<std::uint64_t>(row + 1) * 0x9E3779B97F4A7C15u;
    switch (column) {
        case Flag:
            return bytes(static_cast<std::uint8_t>((row / 7 % 2 == 0) != isChanged ? 0xFF : 0));
        case Count:
            return bytes(static_cast<std::int64_t>(row < 33'000 ? noise : noise % 100) + isChanged);
        case Force:
            if (row == 10) return bytes(static_cast<double>(isChanged ? INFINITY : NAN));
            return bytes(std::nextafter(static_cast<double>(noise % 100'000) / 100, isChanged ? 1e9 : 0));
        case Letter:
            return bytes(static_cast<char16_t>(0x20AC + row % 5 + isChanged));
        default:
            break;
    }
    std::u16string text = row % 3 == 0 ? u"" : row % 3 == 1 ? u"Öltür; zu" : u"\xD83D half";
    if (row == 36'000) text.assign(300'000, u'x');
    if (isChanged) text += u'!';
    return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
}

// Gives a new device its samples, all to the sink too.
std::unique_ptr<kelvarin::store::StoredDevice> Feed(kelvarin::store::DeviceSink& sink, const Change& change) {
    auto device = std::make_unique<kelvarin::store::StoredDevice>(
        u"d/1.csv", change.Description, 0, &sink, std::vector<int>{change.FirstColumn, 2, 3, 4, 5});
    std::vector<DM::SignalProxy*> signals;
    for (int column = 0; column < (change.HasNote ? Columns : Note); ++column) {
        const std::u16string name = u"Spalte " + Utf8ToUtf16(std::to_string(column + 2));
        const std::uint32_t type = column == Force ? change.ForceType : Types[column];
        device->CreateSignal(signals.emplace_back(), name.c_str(), type, SizeOfKelvarinType(type));
        signals.back()->SetSymbol(column == Force ? change.Symbol : u"s");
    }
    for (int row = 0; row < change.Rows; ++row) {
        const std::int64_t time = 1'000'000'007LL * row + (row == change.Row ? change.LaterBy : 0);
        for (std::size_t column = 0; column < signals.size(); ++column) {
            const auto value = ValueAt(static_cast<Column>(column), row, change);
            const auto size = static_cast<std::uint32_t>(value ? value->size() : 0);
            signals[column]->AddSample(value ? value->data() : nullptr, size, time);
        }
    }
    signals[Force]->SetUnit(change.Unit);
    DM::XmlString xml(true);
    xml.WriteIntegerElement(change.MetaData, 1);
    signals[Force]->WriteMetaData(0, xml);
    device->Finish();
    return device;
}

std::string InWords(const kelvarin::store::SampleCheck::Difference* difference) {
    if (difference == nullptr) return "equal";
    const std::string place = difference->Sample ? "[" + std::to_string(*difference->Sample) + "]" : "";
    return difference->Signal + place + " " + difference->What + ": " + difference->Stored.substr(0, 20) +
           " <> " + difference->Imported.substr(0, 20);
}

// A file in which a device has `stored`, after one that was dropped.
class StoredFile {
  public:
    explicit StoredFile(const Change& stored) {
        const auto file = kelvarin::store::CreateSampleFile(Path(), Complaint);
        if (file == nullptr) return;
        Feed(file->BeginDevice(), Change());
        file->DropDevice();
        const auto device = Feed(file->BeginDevice(), stored);
        Complaint = file->KeepDevice(*device, Origin);
        Complaint += file->Finish();
        EXPECT_EQ(Complaint, "");
    }

    // In words, how a device that gets `imported` differs from the file's.
    std::string Compare(const Change& imported) {
        EXPECT_EQ(Folder.Names(), "a.h5");
        const auto archive = kelvarin::store::OpenSampleFile(Path(), Complaint);
        const auto check = archive == nullptr ? nullptr : archive->FindDevice("d/1.csv", 0, Complaint);
        if (check == nullptr) return Complaint;
        EXPECT_EQ(check->Origin().Settings, Origin.Settings);
        EXPECT_EQ(check->Origin().BaseTime, Origin.BaseTime);
        EXPECT_EQ(archive->FindDevice("d/1.csv", 1, Complaint), nullptr)
            << "a dropped device must not be seen";
        const auto device = Feed(*check, imported);
        const kelvarin::store::SampleCheck::Difference* const difference = check->Compare(*device);
        return check->Failure() + InWords(difference);
    }

  private:
    std::string Path() const { return Folder.NativePath("a.h5").string(); }

    const Workdir Folder;
    const kelvarin::store::SampleOrigin Origin{
        12, 34, {{"Separator", "1"}, {"OtherSeparator", "a=b"}}, 56, true};
    std::string Complaint;
};

TEST(Archive, GivesBackWhatItWasGivenAndFindsEveryChange) {
    const struct {
        const char* Name;
        Change Imported;
        const char* Found;
    } cases[] = {
        {"the same", {}, "equal"},
        {"a truth", {.Row = 39'999, .In = Flag}, "s[39999] value: true <> false"},
        {"a bit of a whole number", {.Row = 33'001, .In = Count}, "s[33001] value: 34 <> 35"},
        {"a bit of a real number",
         {.Row = 1, .In = Force},
         "F/x[1] value: 453.53999999999996 <> 453.5400000000001"},
        {"not a number", {.Row = 10, .In = Force}, "F/x[10] value: nan <> inf"},
        {"a character", {.Row = 5, .In = Letter}, "s[5] value: € <> \xE2\x82\xAD"},
        {"a text", {.Row = 3, .In = Note}, "s[3] value: \"\" <> \"!\""},
        {"a long text",
         {.Row = 36'000, .In = Note},
         "s[36000] value: \"xxxxxxxxxxxxxxxxxxx <> \"xxxxxxxxxxxxxxxxxxx"},
        {"a missing number", {.Row = 7, .In = Force, .IsGap = true}, "F/x[7] value: 814.1599999999999 <> -"},
        {"a missing text", {.Row = 6, .In = Note, .IsGap = true}, "s[6] value: \"\" <> -"},
        {"a number that was missing", {.Row = 34'002, .In = Count, .IsGap = true}, "s[34002] value: - <> 16"},
        {"a nanosecond", {.Row = 38'000, .LaterBy = 1}, "[38000] time: 38000000266000 <> 38000000266001"},
        {"the last row is missing", {.Rows = 39'999}, "s[39999] sample: true <> -"},
        {"a row more", {.Rows = 40'001}, "[40000] time: - <> 40000000280000"},
        {"a unit", {.Unit = u"MN"}, "F/x unit: kN <> MN"},
        {"a symbol", {.Symbol = u"F"}, "F symbol: F/x <> F"},
        {"a signal", {.HasNote = false}, " number of signals: 5 <> 4"},
        {"a type", {.ForceType = KelvarinInt64}, "F_x type: 13 <> 15"},
        {"metadata", {.MetaData = "b"}, "F/x metadata: <a>1</a> <> <b>1</b>"},
        {"a description", {.Description = u"Table"}, " description: Text <> Table"},
        {"a column", {.FirstColumn = 9}, "s column: 1 <> 9"},
    };
    StoredFile file({});
    for (const auto& test : cases) EXPECT_EQ(file.Compare(test.Imported), test.Found) << test.Name;
    EXPECT_EQ(StoredFile({.Rows = 3}).Compare({.Rows = 3}), "equal") << "less than a chunk";
}

// Signals may have times of their own by the contract; the module's never do.
TEST(Archive, RefusesTimesThatAreNotShared) {
    const Workdir folder;
    std::string complaint;
    const auto file = kelvarin::store::CreateSampleFile(folder.NativePath("a.h5").string(), complaint);
    kelvarin::store::StoredDevice device(u"d", u"", 0, &file->BeginDevice());
    DM::SignalProxy* signals[2] = {};
    for (DM::SignalProxy*& signal : signals) device.CreateSignal(signal, u"s", KelvarinInt64, 8);
    const std::int64_t value = 1;
    signals[0]->AddSample(&value, 8, 10);
    signals[1]->AddSample(&value, 8, 11);
    device.Finish();
    EXPECT_EQ(file->KeepDevice(device, {}), "signals with times of their own can't be kept in this file");
}

// A device of one signal, the values of which are a few numbers.
std::unique_ptr<kelvarin::store::StoredDevice> FeedNumbers(kelvarin::store::DeviceSink& sink,
                                                           const std::u16string& name, std::int64_t count) {
    auto device = std::make_unique<kelvarin::store::StoredDevice>(name, u"", 0, &sink);
    DM::SignalProxy* signal = nullptr;
    device->CreateSignal(signal, u"s", KelvarinInt64, 8);
    for (std::int64_t i = 0; i < count; ++i) signal->AddSample(&i, 8, i);
    device->Finish();
    return device;
}

TEST(Archive, FindsDevicesByNameAndPlace) {
    const Workdir folder;
    const std::string path = folder.NativePath("a.h5").string();
    std::string complaint;
    const auto file = kelvarin::store::CreateSampleFile(path, complaint);
    const std::u16string names[] = {u"a", u"b/c", u"a", u".", u"", u"time", u"a (2)", u"b_c"};
    for (std::size_t i = 0; i < std::size(names); ++i) {
        const auto count = static_cast<std::int64_t>(i);
        const auto device = FeedNumbers(file->BeginDevice(), names[i], count);
        EXPECT_EQ(file->KeepDevice(*device, {}), "");
    }
    EXPECT_EQ(file->Finish(), "");
    const auto archive = kelvarin::store::OpenSampleFile(path, complaint);
    ASSERT_NE(archive, nullptr) << complaint;
    const struct {
        const char* Name;
        std::size_t Nth;
        std::int64_t Count;  // of samples; -1: there is none
    } cases[] = {
        {"a", 0, 0}, {"a", 1, 2}, {"a", 2, -1},   {"b/c", 0, 1},   {"b_c", 0, 7},    {".", 0, 3},
        {"", 0, 4},  {"", 1, -1}, {"time", 0, 5}, {"a (2)", 0, 6}, {"a (3)", 0, -1}, {"B_C", 0, -1},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(std::string(test.Name) + ", " + std::to_string(test.Nth));
        const auto check = archive->FindDevice(test.Name, test.Nth, complaint);
        EXPECT_EQ(check != nullptr, test.Count >= 0);
        EXPECT_EQ(
            complaint.starts_with("it has no device '" + std::string(test.Name) + "'; it has 'a', 'b/c', "),
            test.Count < 0)
            << complaint;
        if (check == nullptr) continue;
        const auto device = FeedNumbers(*check, Utf8ToUtf16(test.Name), test.Count);
        EXPECT_EQ(InWords(check->Compare(*device)), "equal");
        EXPECT_EQ(check->Compared(), static_cast<std::uint64_t>(test.Count));
    }
}

TEST(Archive, SaysWhyAFileCantBeWritten) {
    const Workdir folder;
    std::filesystem::create_directory(folder.NativePath("folder"));
    std::filesystem::create_symlink("real.h5", folder.NativePath("link.h5"));
    folder.Write("real.h5", "before");
    std::string complaint;
    const auto other = kelvarin::store::CreateSampleFile(folder.NativePath("busy.h5").string(), complaint);
    const struct {
        const char* Name;
        const char* Complaint;
    } cases[] = {
        {"no/a.h5", "No such file or directory"},
        {"folder", "Is a directory"},
        {"busy.h5", "another run is just writing it"},
        {"link.h5", ""},
        {"new.h5", ""},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Name);
        const auto file = kelvarin::store::CreateSampleFile(folder.NativePath(test.Name).string(), complaint);
        EXPECT_EQ(complaint, test.Complaint);
        EXPECT_EQ(file != nullptr, complaint.empty());
    }
    EXPECT_TRUE(folder.Names().starts_with("busy.h5.kelvarin-")) << folder.Names();
    EXPECT_TRUE(folder.Names().ends_with(" folder link.h5 real.h5")) << "what isn't finished is removed";
    EXPECT_EQ(folder.Read("real.h5"), "before");
    const auto file = kelvarin::store::CreateSampleFile(folder.NativePath("link.h5").string(), complaint);
    EXPECT_EQ(file->Finish(), "");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.NativePath("link.h5")));
    EXPECT_TRUE(folder.Read("real.h5").starts_with("\x89HDF")) << "the link's target is replaced";
}

// Wherever a file is cut off, reading it fails with a reason; it never shows other samples.
TEST(Archive, NoticesACutFile) {
    const Workdir folder;
    const std::string path = folder.NativePath("a.h5").string();
    std::string complaint;
    const auto file = kelvarin::store::CreateSampleFile(path, complaint);
    const auto device = FeedNumbers(file->BeginDevice(), u"a", 100'000);
    ASSERT_EQ(file->KeepDevice(*device, {}), "");
    ASSERT_EQ(file->Finish(), "");
    const std::string whole = folder.Read("a.h5");
    for (std::size_t size = 0; size < whole.size(); size += whole.size() / 50) {
        SCOPED_TRACE(size);
        folder.Write("cut.h5", whole.substr(0, size));
        complaint.clear();
        const auto archive = kelvarin::store::OpenSampleFile(folder.NativePath("cut.h5").string(), complaint);
        const auto check = archive == nullptr ? nullptr : archive->FindDevice("a", 0, complaint);
        EXPECT_EQ(check == nullptr, !complaint.empty());
        if (check == nullptr) continue;
        const auto again = FeedNumbers(*check, u"a", 100'000);
        const bool isEqual = check->Compare(*again) == nullptr && check->Failure().empty();
        EXPECT_FALSE(isEqual);
    }
}

}  // namespace
