// Settings first: the module reads the file itself where it then reads what the plan says. Only what no
// setting can say takes a copy, which costs one more pass over the file.
#include "host/plan/AutomaticReading.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <utility>

#include "contract/TableReader.h"
#include "contract/TimeReader.h"
#include "host/Reading.h"
#include "host/language/Phrase.h"
#include "host/plan/PlanSettings.h"
#include "host/sidecar/ColumnsFile.h"
#include "host/sidecar/Sidecars.h"
#include "platform/framework/File.h"
#include "platform/framework/FormatText.h"
#include "platform/framework/Text.h"
#include "resources/ResourceIds.h"

namespace kelvarin::plan {
namespace {
constexpr const char* TableKeys[] = {"AutoFormat",      "Separator", "OtherSeparator",
                                     "MergeSeparators", "FirstLine", "ImportHeader"};
constexpr const char* TimeKeys[] = {"DateSetting", "DateColumn",    "StartDate",    "TimeSetting",
                                    "TimeColumn",  "IntervalValue", "IntervalUnit", "TimestampFormat"};

// The module can be asked how it reads rows and times.
bool CanBeAsked(const CImportFilter& filter) {
    return SettingsOf(filter) != nullptr && filter.Find<ITimeReader>() != nullptr &&
           filter.Find<ITableReader>() != nullptr;
}

// The settings in force name the table, whoever has set them.
bool NamesTable(const CImportFilter& filter) {
    const CCsvImportSettings* const settings = SettingsOf(filter);
    return settings != nullptr && settings->AutoFormat == 0;
}

// The settings in force say how times are read, whoever has set them.
bool SaysTimes(const CImportFilter& filter) {
    const CCsvImportSettings* const settings = SettingsOf(filter);
    return settings != nullptr &&
           (!settings->TimestampFormat.empty() || settings->TimeSetting != TimeFromColumn ||
            settings->DateSetting != DateFromColumn || settings->DateColumn != 1 ||
            settings->TimeColumn != 1);
}

bool IsAmong(const std::vector<ParsedSetting>& settings, const std::string& key) {
    return std::any_of(settings.begin(), settings.end(),
                       [&key](const ParsedSetting& setting) { return Utf16ToUtf8(setting.Key) == key; });
}

bool HasAny(const std::vector<ParsedSetting>& settings, bool (*isOne)(std::string_view key)) {
    return std::any_of(settings.begin(), settings.end(),
                       [isOne](const ParsedSetting& setting) { return isOne(Utf16ToUtf8(setting.Key)); });
}

bool HasReadableSidecar(const ModuleLoader& module, const std::u16string& path) {
    return sidecar::HasSidecar(path) && sidecar::CheckSidecar(module, path + u".info").Errors == 0;
}
}  // namespace

bool IsTableKey(std::string_view key) {
    return std::find(std::begin(TableKeys), std::end(TableKeys), key) != std::end(TableKeys);
}

bool IsTimeKey(std::string_view key) {
    return std::find(std::begin(TimeKeys), std::end(TimeKeys), key) != std::end(TimeKeys);
}

bool IsPlanWanted(const ModuleLoader& module, const std::u16string& path,
                  const std::vector<ParsedSetting>& chosen) {
    const auto filter = module.MakeFilter(path);
    return !HasReadableSidecar(module, path) && CanBeAsked(*filter) && !NamesTable(*filter) &&
           !HasAny(chosen, IsTableKey);
}

AutomaticReading::AutomaticReading(const ModuleLoader& module, const std::u16string& path,
                                   const std::vector<ParsedSetting>& chosen, AutomaticOptions options)
    : Module(module),
      Source(path),
      Chosen(chosen),
      Options(std::move(options)),
      ReadPath(path),
      FormatLetters(Options.FormatLetters) {
    const auto filter = Module.MakeFilter(path);
    AreTimesChosen = SaysTimes(*filter) || HasAny(Chosen, IsTimeKey);
    IsChosenWhole = AreTimesChosen && (NamesTable(*filter) || HasAny(Chosen, IsTableKey));
    HasSidecar = HasReadableSidecar(module, path);
    if (!Options.IsOff && (Options.ColumnsOnly || (!HasSidecar && !IsChosenWhole && CanBeAsked(*filter))))
        Look(TableFixedBy(*filter, Chosen));
    if (Found && Options.ColumnsOnly) {
        ChooseColumns();
    } else if (Found) {
        FollowDirectly();
    }
    if (!Options.IsOff && !Found) {
        sidecar::KeptChoices kept = sidecar::ReadChoices(path);
        Columns = std::move(kept.Columns);
        if (FormatLetters.empty()) FormatLetters = std::move(kept.Letters);
    }
    ApplyWishes();
}

void AutomaticReading::Look(const FixedTable& fixed) {
    try {
        const bool isFree = !fixed.IsFixed();
        Found = Options.Kinds != nullptr && isFree ? FindPlan(Source, *Options.Kinds, Unlike)
                                                   : FindPlan(Source, fixed);
    } catch (CFileException* failure) {
        Unread = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
    } catch (const std::bad_alloc&) {
        // A line of the file is too large for this process: an import says so.
    } catch (const std::length_error&) {
        // The same.
    }
}

void AutomaticReading::FollowDirectly() {
    const auto filter = Module.MakeFilter(Source);
    std::optional<SettingList> table = TableSettingsOf(*filter, *Found);
    std::optional<TimeSettings> times;
    if (AreTimesChosen) {
        times.emplace(TimeSettings{{}, FormatLetters});
    } else if (table) {
        times = TimeSettingsOf(*filter, *Found, Source);
    }
    const bool copies = Options.Copies && Found->Times && !AreTimesChosen;
    if (table && times && !copies) {
        table->insert(table->end(), times->Settings.begin(), times->Settings.end());
        std::erase_if(*table, [this](const auto& setting) { return IsAmong(Chosen, setting.first); });
        FormatLetters = times->Letters;
        ChooseColumns();
        Follow(*std::move(table));
        return;
    }
    if (Found->Times && !AreTimesChosen) MakeCopy();
    if (!Copied) Found.reset();
}

void AutomaticReading::MakeCopy() {
    CopyOptions options;
    options.Cancel = Options.Cancel;
    options.OnProgress = Options.OnProgress;
    CopyResult result;
    try {
        CopyFile = std::make_unique<ScratchFile>();
        result = WriteCleanCopy(Source, *Found, *CopyFile, options);
    } catch (CFileException* failure) {
        result.Failure = Utf16ToUtf8(DescribeFileError(*failure));
        failure->Delete();
    }
    Interrupted = result.Interrupted;
    Failure = result.Failure;
    if (!Failure.empty() || Interrupted) {
        CopyFile.reset();
        return;
    }
    ReadPath = CopyFile->Path();
    FormatLetters.clear();
    for (std::size_t i = 0; i < std::min(result.Types.size(), Found->Columns.size()); ++i) {
        Found->Columns[i].Type = result.Types[i];
        Found->Columns[i].Cells = result.Cells[i];
    }
    for (PlannedColumn& column : Found->Columns) column.HasAmounts = false;
    ChooseColumns();
    NameColumns();
    const std::size_t timeColumn = Found->Columns.size();
    Columns.push_back({static_cast<int>(timeColumn), {}, {}, 0, false});
    SettingList settings = {{"AutoFormat", "0"},    {"Separator", std::to_string(SeparatorTab)},
                            {"OtherSeparator", ""}, {"MergeSeparators", "0"},
                            {"FirstLine", "1"},     {"ImportHeader", "1"}};
    const SettingList times = CopyTimeSettings(*Module.MakeFilter(ReadPath), result.Times, timeColumn);
    settings.insert(settings.end(), times.begin(), times.end());
    Copied = std::move(result);
    Follow(std::move(settings));
}

void AutomaticReading::Follow(SettingList settings) {
    for (const auto& [key, value] : settings) Layer.Set(key, value);
    Followed = std::move(settings);
}

void AutomaticReading::ChooseColumns() {
    Columns.clear();
    for (std::size_t i = 0; i < Found->Columns.size(); ++i) {
        const PlannedColumn& column = Found->Columns[i];
        const bool isTime = column.IsTime && !AreTimesChosen;
        Columns.push_back({static_cast<int>(i), column.Name, column.Unit, ModuleTypeOf(column), !isTime});
    }
}

// As the module names a column that has no name in the file: by its number.
void AutomaticReading::NameColumns() {
    const std::vector<std::u16string> names = Module.ResourceItems(IdColumnName);
    for (ColumnChoice& choice : Columns) {
        if (choice.Name.empty() && !names.empty()) choice.Name = FormatText(names.front(), choice.Column + 1);
    }
}

std::vector<ColumnChoice> AutomaticReading::ColumnsToPin() const {
    std::vector<ColumnChoice> pinned;
    if (Copied || !Found) return pinned;
    const auto filter = Module.MakeFilter(ReadPath);
    filter->AnalyzeFile();
    const std::vector<ColumnSummary> columns = SummarizeColumns(*filter);
    for (ColumnChoice choice : Columns) {
        const auto column = std::find_if(columns.begin(), columns.end(), [&](const ColumnSummary& one) {
            return one.Index == choice.Column;
        });
        if (column != columns.end()) {
            if (column->IsTimestamp) continue;
            if (choice.Name == column->Name) choice.Name.clear();
            if (choice.Type == column->Type) choice.Type = CsvTypeUndefined;
        }
        if (!choice.Name.empty() || !choice.Unit.empty() || choice.Type != CsvTypeUndefined || !choice.Import)
            pinned.push_back(std::move(choice));
    }
    return pinned;
}

void AutomaticReading::ApplyWishes() {
    // The names are those of the file, whatever a wish makes of them.
    std::vector<int> numbers;
    for (const ColumnWish& wish : Options.Wishes) numbers.push_back(NumberOf(wish.Column));
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const ColumnWish& wish = Options.Wishes[i];
        if (numbers[i] == 0) {
            Unknown.push_back(wish.Column);
            continue;
        }
        const int index = numbers[i] - 1;
        auto column = std::find_if(Columns.begin(), Columns.end(),
                                   [index](const ColumnChoice& choice) { return choice.Column == index; });
        if (column == Columns.end())
            column = Columns.insert(Columns.end(), ColumnChoice{index, {}, {}, 0, true});
        if (wish.Name) column->Name = *wish.Name;
        if (wish.Unit) column->Unit = *wish.Unit;
        if (wish.Type != 0) column->Type = wish.Type;
        if (wish.Skip) column->Import = false;
    }
}

int AutomaticReading::NumberOf(const std::u16string& name) const {
    int number = 0;
    if (ParseWhole(Utf16ToUtf8(name), number) && number > 0) return number;
    for (const ColumnChoice& choice : Columns) {
        if (choice.Name == name) return choice.Column + 1;
    }
    const auto filter = Module.MakeFilter(ReadPath);
    filter->AnalyzeFile();
    for (const ColumnSummary& column : SummarizeColumns(*filter)) {
        if (column.Name == name) return column.Index + 1;
    }
    return 0;
}

void AutomaticReading::Guide(CImportFilter& filter) {
    IGuidedReading* const guided = filter.Find<IGuidedReading>();
    if (guided == nullptr) return;
    guided->ChooseColumns(Columns);
    if (!FormatLetters.empty()) guided->ReadFormatsBy(FormatLetters);
    if (!Found) return;
    Asked = std::make_unique<RunGuide>(*Found, Copied ? &Copied->Lines : nullptr, !AreTimesChosen);
    guided->FollowGuide(Asked.get());
}

std::uint64_t AutomaticReading::SourceLine(std::uint64_t line) const {
    return Copied ? Copied->Lines.SourceLine(line) : line;
}

bool AutomaticReading::TakesCopy() {
    if (!Found || Copied || AreTimesChosen || Options.ColumnsOnly || !Found->Times || Asked == nullptr ||
        !Asked->AreLossesAvoidable())
        return false;
    MakeCopy();
    if (Copied) ApplyWishes();
    return Copied.has_value();
}
}  // namespace kelvarin::plan
