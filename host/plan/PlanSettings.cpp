// A format is tried on all rows of the sample, and taken only if the module reads every time as the plan
// does: what the module makes of a text is the module's to say.
#include "host/plan/PlanSettings.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>

#include "contract/TableReader.h"
#include "contract/TimeReader.h"
#include "host/plan/CopyTime.h"
#include "host/plan/Durations.h"
#include "host/plan/FormatShapes.h"
#include "platform/framework/Path.h"
#include "platform/framework/Text.h"
#include "settings/IntervalUnits.h"
#include "settings/SettingsTable.h"

namespace kelvarin::plan {
namespace {
// Lines that are cut by the module to see whether it finds the same cells.
constexpr std::uint64_t LinesCompared = 60;

using Texts = std::vector<std::u16string>;
using Times = std::vector<std::int64_t>;

std::string Text(std::int64_t number) {
    return std::to_string(number);
}

// The first line of the settings, and whether it holds the names.
struct TableStart {
    std::uint64_t Line;
    bool IsHeader;
};

TableStart StartOf(const ReadingPlan& plan) {
    const FixedTable& fixed = plan.Fixed;
    if (fixed.FirstLine != 0)
        return {fixed.FirstLine, fixed.HasNames.value_or(plan.NamesLine == fixed.FirstLine)};
    const bool isDirectlyBelow = plan.NamesLine != 0 && plan.NamesLine + 1 == plan.FirstLine;
    const bool hasNames = fixed.HasNames.value_or(isDirectlyBelow) && plan.FirstLine > 1;
    return {hasNames ? plan.FirstLine - 1 : plan.FirstLine, hasNames};
}

// The module takes as many columns as the line at which it starts has cells: one above the table has too few.
bool IsStartTooShort(const ReadingPlan& plan, std::uint64_t start) {
    if (start == plan.FirstLine || start == plan.NamesLine || start > plan.Sample.Head) return false;
    LineCutter cut(plan.How);
    return cut(plan.Sample.Lines[start - 1].Text).size() < plan.Width;
}

// A cell that the module would refuse or read as another number.
bool IsReadOtherwise(const PlannedColumn& column, const CutCell& cell, const ReadingPlan& plan) {
    const bool isNumber = column.Type == ColumnType::Integer || column.Type == ColumnType::Float;
    const bool isTruth = column.Type == ColumnType::Boolean;
    if (column.IsTime || (!isNumber && !isTruth) || cell.Text.empty() || IsMissing(cell.Text)) return false;
    const bool fits = (cell.Fits >> (ModuleTypeOf(column) - 1) & 1) != 0;
    if (isTruth) return !fits;
    const std::u16string_view text = TrimWhiteSpace(cell.Text);
    const std::optional<NumberLook> look = LookAtNumber(text);
    if (!look && !AmountIn(text)) return false;
    const bool isThousands =
        look && (look->Thousands != u'\0' || (look->Mark != u'\0' && look->Mark != plan.Mark));
    return isThousands || !fits;
}

// A number that stands for a missing value, which the module would take for one.
bool HoldsDeclaredMissing(const ReadingPlan& plan) {
    const auto isAny = [&plan](const auto& row) {
        return std::any_of(row.begin(), row.end(),
                           [&plan](const auto& cell) { return plan.IsDeclaredMissing(cell); });
    };
    return !plan.Missing.empty() && std::any_of(plan.Rows.Cells.begin(), plan.Rows.Cells.end(), isAny);
}

// Both cut a line alike; `expected` are the plan's cells.
bool AreAlike(const CutLine& line, const std::vector<std::u16string_view>& expected, const ReadingPlan& plan,
              std::size_t length) {
    if (line.CellCount != expected.size()) return false;
    for (std::size_t i = 0; i < std::min(line.Cells.size(), plan.Columns.size()); ++i) {
        const std::u16string_view text = TrimWhiteSpace(line.Cells[i].Text);
        if (text.size() < length && text != expected[i]) return false;
        if (IsReadOtherwise(plan.Columns[i], line.Cells[i], plan)) return false;
    }
    return true;
}

bool CutsAlike(ITableReader& reader, const ReadingPlan& plan) {
    LineCut cut;
    cut.Separator = plan.How.Separator;
    cut.MergeSeparators = plan.How.Merges;
    cut.MostLines = plan.FirstLine + LinesCompared;
    std::vector<CutLine> lines;
    std::string reason;
    if (!reader.CutLines(cut, lines, reason)) return false;
    LineCutter cutter(plan.How);
    for (const SampleLine& sampled : plan.Sample.Lines) {
        if (sampled.Number < plan.FirstLine || sampled.Number >= cut.MostLines) continue;
        if (TrimWhiteSpace(sampled.Text).empty()) continue;
        const auto line =
            std::lower_bound(lines.begin(), lines.end(), sampled.Number,
                             [](const CutLine& one, std::uint64_t number) { return one.Line < number; });
        if (line == lines.end() || line->Line != sampled.Number) return false;
        if (!AreAlike(*line, cutter(sampled.Text), plan, cut.CellLength)) return false;
    }
    return true;
}

// The texts of the rows that have a time, as the module would join them, and the times of the plan.
struct TimedTexts {
    Texts Joined;
    std::vector<Texts> Cells;  // by column of the recipe, in the order of the table
    Times Expected;            // ns as TimeRecipe::TimeOf gives them
};

TimedTexts TextsOf(const ReadingPlan& plan, const std::vector<std::size_t>& columns) {
    TimedTexts texts;
    texts.Cells.resize(columns.size());
    std::vector<std::u16string_view> cells;
    for (const auto& row : plan.Rows.Cells) {
        cells.assign(row.begin(), row.end());
        const std::optional<std::int64_t> time = plan.Times->Recipe.TimeOf(cells);
        if (!time) continue;
        std::u16string joined;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (i != 0) joined += plan.How.Separator;
            joined += row[columns[i]];
            texts.Cells[i].push_back(row[columns[i]]);
        }
        texts.Joined.push_back(std::move(joined));
        texts.Expected.push_back(*time);
    }
    return texts;
}

std::u16string FieldOf(char16_t letter, std::size_t length) {
    return std::u16string(length, letter);
}

// The format of the times that a copy has.
std::u16string WrittenFormat(const std::u16string& letters) {
    return FieldOf(letters[0], 4) + u"-" + FieldOf(letters[1], 2) + u"-" + FieldOf(letters[2], 2) + u" " +
           FieldOf(letters[3], 2) + u":" + FieldOf(letters[4], 2) + u":" + FieldOf(letters[5], 2) +
           u".000000000";
}

// Fractions of a second that are no binary fractions may differ in the last digit.
bool AreEqual(const Times& one, const Times& other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](std::int64_t a, std::int64_t b) { return b != -1 && std::abs(a - b) <= 1; });
}

// The texts among which one has the look of all: the first, the longest and the last.
Texts Examples(const Texts& texts) {
    const auto longest = std::max_element(texts.begin(), texts.end(), [](const auto& one, const auto& other) {
        return one.size() < other.size();
    });
    return {texts.front(), *longest, texts.back()};
}

// Formats that a text could have, also with a fraction that it lacks itself.
Texts FormatsOf(const std::u16string& text, const std::u16string& letters) {
    Texts formats;
    for (const std::u16string& format : FormatsLike(text, letters)) {
        formats.push_back(format);
        if (format.back() != letters[5]) continue;
        for (const char16_t* const fraction : {u".000", u",000"}) formats.push_back(format + fraction);
    }
    return formats;
}

// The formats for the joined texts.
Texts JoinedFormats(const TimedTexts& texts, char16_t separator, const std::u16string& letters) {
    Texts joined;
    for (std::size_t i = 0; i < texts.Cells.size(); ++i) {
        Texts own;
        for (const std::u16string& example : Examples(texts.Cells[i])) {
            for (std::u16string& format : FormatsOf(example, letters)) {
                if (std::find(own.begin(), own.end(), format) == own.end()) own.push_back(std::move(format));
            }
        }
        if (i == 0) {
            joined = std::move(own);
            continue;
        }
        const std::u16string joint = IsWhiteSpace(separator) ? u" " : std::u16string(1, separator);
        Texts longer;
        for (const std::u16string& left : joined) {
            for (const std::u16string& right : own) longer.push_back(left + joint + right);
        }
        joined = std::move(longer);
    }
    return joined;
}

// The day on which the first row was written, if the file was last changed with its last row.
std::int64_t FirstDayOf(const std::u16string& path, std::int64_t span) {
    std::error_code error;
    const auto changed = std::filesystem::last_write_time(PathForStream(path), error);
    const auto moment = error ? std::chrono::system_clock::now()
                              : std::chrono::time_point_cast<std::chrono::system_clock::duration>(
                                    std::chrono::file_clock::to_sys(changed));
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(moment.time_since_epoch());
    return seconds.count() - span / Second;
}

SettingList ColumnSettings(int dateSetting, std::size_t date, std::size_t time,
                           const std::u16string& format) {
    SettingList settings = {{"DateSetting", std::to_string(dateSetting)}};
    if (dateSetting == DateFromColumn) settings.emplace_back("DateColumn", std::to_string(date + 1));
    settings.emplace_back("TimeSetting", "0");
    settings.emplace_back("TimeColumn", std::to_string(time + 1));
    settings.emplace_back("TimestampFormat", Utf16ToUtf8(format));
    return settings;
}

std::optional<SettingList> TextSettings(ITimeReader& reader, const ReadingPlan& plan,
                                        const std::u16string& path) {
    const TimeRecipe& recipe = plan.Times->Recipe;
    if (recipe.Columns.size() > 2) return std::nullopt;
    std::vector<std::size_t> columns = recipe.Columns;
    std::sort(columns.begin(), columns.end());
    TimedTexts texts = TextsOf(plan, columns);
    if (texts.Joined.empty()) return std::nullopt;
    const std::u16string letters = reader.FormatLetters();
    if (recipe.IsAbsolute && !recipe.AppliesZone) {
        TimeWriter writer(CopyTimes::Local);
        Texts written;
        for (const std::int64_t time : texts.Expected) {
            std::string text;
            writer.Append(time, text);
            written.push_back(Utf8ToUtf16(text));
        }
        texts.Expected = reader.ReadTimes(WrittenFormat(letters), written, true);
    }
    for (const std::u16string& format : JoinedFormats(texts, plan.How.Separator, letters)) {
        if (!AreEqual(texts.Expected, reader.ReadTimes(format, texts.Joined, recipe.IsAbsolute))) continue;
        if (recipe.IsAbsolute)
            return ColumnSettings(DateFromColumn, recipe.Columns.front(), recipe.Columns.back(), format);
        if (columns.size() != 1) return std::nullopt;
        const bool runsOver = recipe.RollsOver && plan.Times->Trial.Last > DayLength;
        SettingList settings = ColumnSettings(runsOver ? DateFixed : DateNone, 0, columns[0], format);
        if (runsOver) {
            const std::int64_t span = plan.Times->Trial.Last - plan.Times->Trial.First;
            settings.emplace_back("StartDate", Text(FirstDayOf(path, span)));
        }
        return settings;
    }
    return std::nullopt;
}

// "[s].000" for numbers of seconds with a point.
std::u16string NumberFormat(std::int64_t unit, char16_t mark, bool hasPlus, const std::u16string& letters) {
    std::u16string format = hasPlus ? u"+" : u"";
    for (const IntervalUnit& named : IntervalUnits) {
        if (named.Nanoseconds != unit) continue;
        const bool isMinutes = named.Name == std::u16string_view(u"min");
        format += isMinutes ? FieldOf(letters[4], 2) : u"[" + std::u16string(named.Name) + u"]";
        if (mark != u'\0') format += std::u16string(1, mark) + u"000";
        return format;
    }
    return {};
}

std::optional<SettingList> NumberSettings(ITimeReader& reader, const ReadingPlan& plan) {
    const TimeRecipe& recipe = plan.Times->Recipe;
    if (recipe.Offset != 0 || recipe.Epoch != 0 || recipe.IsAbsolute != recipe.IsUtc) return std::nullopt;
    const TimedTexts texts = TextsOf(plan, {recipe.Columns.front()});
    if (texts.Joined.empty()) return std::nullopt;
    const auto has = [&](char16_t sign) {
        return std::any_of(texts.Joined.begin(), texts.Joined.end(), [sign](const std::u16string& text) {
            return text.find(sign) != std::u16string::npos;
        });
    };
    const char16_t mark = has(recipe.Mark) ? recipe.Mark : u'\0';
    const std::u16string format = NumberFormat(recipe.Unit, mark, has(u'+'), reader.FormatLetters());
    if (format.empty() || !AreEqual(texts.Expected, reader.ReadTimes(format, texts.Joined, false)))
        return std::nullopt;
    SettingList settings =
        ColumnSettings(recipe.IsUtc ? DateFixed : DateNone, 0, recipe.Columns.front(), format);
    if (recipe.IsUtc) settings.emplace_back("StartDate", "0");
    return settings;
}

// Only where each line is a row: the module counts all but the blank ones.
std::optional<SettingList> IntervalSettings(const ReadingPlan& plan) {
    const TimeRecipe& recipe = plan.Times->Recipe;
    if (recipe.IsAbsolute || plan.Times->Trial.Read != plan.Rows.Cells.size()) return std::nullopt;
    for (int i = 0; i < IntervalUnitCount; ++i) {
        if (recipe.Unit % IntervalUnits[i].Nanoseconds != 0) continue;
        return SettingList{{"DateSetting", std::to_string(DateNone)},
                           {"TimeSetting", std::to_string(TimeInterval)},
                           {"IntervalValue", Text(recipe.Unit / IntervalUnits[i].Nanoseconds)},
                           {"IntervalUnit", std::to_string(i)}};
    }
    return std::nullopt;
}
}  // namespace

std::optional<SettingList> TableSettingsOf(const CImportFilter& filter, const ReadingPlan& plan) {
    const TableStart start = StartOf(plan);
    if (HoldsDeclaredMissing(plan)) return std::nullopt;
    if (plan.How.IsLineQuoted || start.Line == 0 || start.Line > HighestNumber) return std::nullopt;
    if (IsStartTooShort(plan, start.Line)) return std::nullopt;
    ITableReader* const reader = filter.Find<ITableReader>();
    if (reader == nullptr || !CutsAlike(*reader, plan)) return std::nullopt;
    const auto* const fixed =
        std::find(std::begin(FixedSeparators), std::end(FixedSeparators), plan.How.Separator);
    const bool isFixed = fixed != std::end(FixedSeparators);
    SettingList settings = {{"AutoFormat", "0"}};
    settings.emplace_back("Separator", std::to_string(isFixed ? fixed - std::begin(FixedSeparators)
                                                              : std::ptrdiff_t{SeparatorOther}));
    if (!isFixed) {
        const bool isNone = plan.How.Separator == u'\0';
        settings.emplace_back("OtherSeparator",
                              isNone ? "" : Utf16ToUtf8(std::u16string(1, plan.How.Separator)));
    }
    settings.emplace_back("MergeSeparators", plan.How.Merges ? "1" : "0");
    settings.emplace_back("FirstLine", std::to_string(start.Line));
    settings.emplace_back("ImportHeader", start.IsHeader ? "1" : "0");
    return settings;
}

std::optional<SettingList> TimeSettingsOf(const CImportFilter& filter, const ReadingPlan& plan,
                                          const std::u16string& path) {
    ITimeReader* const reader = filter.Find<ITimeReader>();
    if (!plan.Times || plan.Times->Recipe.EndsDays || plan.HaveOthersTimes() || reader == nullptr ||
        plan.Times->Trial.Falling != (plan.EndsInTotal ? 1u : 0u))
        return std::nullopt;
    switch (plan.Times->Recipe.Kind) {
        case TimeKind::Text:
            return TextSettings(*reader, plan, path);
        case TimeKind::Number:
            return NumberSettings(*reader, plan);
        case TimeKind::Interval:
            return IntervalSettings(plan);
        default:
            return std::nullopt;
    }
}

SettingList CopyTimeSettings(const CImportFilter& filter, CopyTimes times, std::size_t column) {
    ITimeReader* const reader = filter.Find<ITimeReader>();
    if (times == CopyTimes::Local)
        return ColumnSettings(DateFromColumn, column, column, WrittenFormat(reader->FormatLetters()));
    SettingList settings =
        ColumnSettings(times == CopyTimes::Moments ? DateFixed : DateNone, 0, column, u"[s].000000000");
    if (times == CopyTimes::Moments) settings.emplace_back("StartDate", "0");
    return settings;
}

int ModuleTypeOf(const PlannedColumn& column) {
    switch (column.Type) {
        case ColumnType::Boolean:
            return CsvTypeBoolean;
        case ColumnType::Integer:
            return column.HasAmounts ? CsvTypeIntegerUnit : CsvTypeInteger;
        case ColumnType::Hexadecimal:
            return CsvTypeHex;
        case ColumnType::Float:
            return column.HasAmounts ? CsvTypeFloatUnit : CsvTypeFloat;
        case ColumnType::Character:
            return CsvTypeChar;
        default:
            return CsvTypeString;
    }
}
}  // namespace kelvarin::plan
