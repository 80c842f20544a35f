// A profile of the usual form: a section for each column, by its number from 1.
#include "host/sidecar/ColumnsFile.h"

#include <algorithm>
#include <filesystem>

#include "host/language/Phrase.h"
#include "platform/framework/File.h"
#include "platform/framework/Path.h"
#include "platform/framework/ProfileStore.h"
#include "platform/framework/ProfileText.h"
#include "platform/framework/ReplacingFile.h"
#include "platform/framework/Text.h"
#include "settings/DataType.h"

namespace kelvarin::sidecar {
namespace {
constexpr const char16_t* Table = u"Columns";
constexpr const char16_t* Highest = u"Highest";
constexpr const char16_t* Format = u"Format";
constexpr const char16_t* Letters = u"Letters";
constexpr std::int32_t MostColumns = 1'000'000;

std::u16string SectionOf(int number) {
    return u"Column " + Utf8ToUtf16(std::to_string(number));
}
}  // namespace

std::u16string ColumnsPath(const std::u16string& source) {
    return source + u".columns";
}

KeptChoices ReadChoices(const std::u16string& source) {
    KeptChoices kept;
    std::error_code ignored;
    if (!std::filesystem::exists(PathForStream(ColumnsPath(source)), ignored)) return kept;
    const auto store = OpenProfileFile(ColumnsPath(source));
    kept.Letters = store->ReadText(Format, Letters).value_or(u"");
    const std::int32_t highest = std::min(store->ReadInt(Table, Highest).value_or(0), MostColumns);
    for (std::int32_t number = 1; number <= highest; ++number) {
        const std::u16string section = SectionOf(number);
        ColumnChoice choice;
        choice.Column = number - 1;
        choice.Name = store->ReadText(section, u"Name").value_or(u"");
        choice.Unit = store->ReadText(section, u"Unit").value_or(u"");
        choice.Type =
            std::clamp<std::int32_t>(store->ReadInt(section, u"Type").value_or(0), 0, CsvTypeString);
        choice.Import = store->ReadInt(section, u"Import").value_or(1) != 0;
        if (!choice.Name.empty() || !choice.Unit.empty() || choice.Type != 0 || !choice.Import)
            kept.Columns.push_back(std::move(choice));
    }
    return kept;
}

std::string SaveChoices(const std::u16string& source, const KeptChoices& choices, bool replaces) {
    if (choices.Columns.empty() && choices.Letters.empty()) return {};
    const std::u16string path = ColumnsPath(source);
    std::error_code ignored;
    if (!replaces && std::filesystem::exists(std::filesystem::symlink_status(PathForStream(path), ignored)))
        return Phrase("{} exists already and stays as it is", Utf16ToUtf8(PathStripPath(path)));
    ProfileText text({});
    std::int32_t highest = 0;
    for (const ColumnChoice& choice : choices.Columns) {
        const std::string section = Utf16ToUtf8(SectionOf(choice.Column + 1));
        highest = std::max(highest, choice.Column + 1);
        if (!choice.Name.empty()) text.Set(section, "Name", QuoteProfileText(choice.Name));
        if (!choice.Unit.empty()) text.Set(section, "Unit", QuoteProfileText(choice.Unit));
        if (choice.Type != 0) text.Set(section, "Type", std::to_string(choice.Type));
        if (!choice.Import) text.Set(section, "Import", "0");
    }
    text.Set(Utf16ToUtf8(Table), Utf16ToUtf8(Highest), std::to_string(highest));
    if (!choices.Letters.empty())
        text.Set(Utf16ToUtf8(Format), Utf16ToUtf8(Letters), QuoteProfileText(choices.Letters));
    try {
        ReplaceFile(path, text.ToBytes());
    } catch (CFileException* failure) {
        const std::string reason = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
        return reason;
    }
    return {};
}
}  // namespace kelvarin::sidecar
