// A profile of the usual form: a section for each column, by its number from 1.
#include "host/sidecar/ColumnsFile.h"

#include <algorithm>
#include <filesystem>

#include "host/language/Phrase.h"
#include "platform/framework/Path.h"
#include "platform/framework/ProfileStore.h"
#include "platform/framework/Text.h"
#include "settings/DataType.h"

namespace kelvarin::sidecar {
namespace {
constexpr const char16_t* Table = u"Columns";
constexpr const char16_t* Highest = u"Highest";
constexpr std::int32_t MostColumns = 1'000'000;

std::u16string SectionOf(int number) {
    return u"Column " + Utf8ToUtf16(std::to_string(number));
}
}  // namespace

std::u16string ColumnsPath(const std::u16string& source) {
    return source + u".columns";
}

std::vector<ColumnChoice> ReadColumns(const std::u16string& source) {
    std::vector<ColumnChoice> columns;
    std::error_code ignored;
    if (!std::filesystem::exists(PathForStream(ColumnsPath(source)), ignored)) return columns;
    const auto store = OpenProfileFile(ColumnsPath(source));
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
            columns.push_back(std::move(choice));
    }
    return columns;
}

std::string SaveColumns(const std::u16string& source, const std::vector<ColumnChoice>& columns) {
    if (columns.empty()) return {};
    const std::u16string path = ColumnsPath(source);
    std::error_code ignored;
    if (std::filesystem::exists(std::filesystem::symlink_status(PathForStream(path), ignored)))
        return Phrase("{} exists already and stays as it is", Utf16ToUtf8(PathStripPath(path)));
    const auto store = OpenProfileFile(path);
    store->BeginWrites();
    std::int32_t highest = 0;
    for (const ColumnChoice& choice : columns) {
        const std::u16string section = SectionOf(choice.Column + 1);
        highest = std::max(highest, choice.Column + 1);
        if (!choice.Name.empty()) store->WriteText(section, u"Name", choice.Name);
        if (!choice.Unit.empty()) store->WriteText(section, u"Unit", choice.Unit);
        if (choice.Type != 0) store->WriteInt(section, u"Type", choice.Type);
        if (!choice.Import) store->WriteInt(section, u"Import", 0);
    }
    store->WriteInt(Table, Highest, highest);
    return store->EndWrites() ? std::string() : Utf16ToUtf8(store->WriteFailure());
}
}  // namespace kelvarin::sidecar
