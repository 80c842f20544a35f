#include "host/plan/Sureness.h"

#include <algorithm>
#include <array>

#include "host/Words.h"
#include "host/language/Phrase.h"
#include "host/plan/Durations.h"
#include "host/plan/TimesInWords.h"
#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
constexpr std::size_t FewRows = 4;  // fewer prove nothing
constexpr std::size_t TypeCount = 6;

void Lower(Certainty& sureness, Certainty most) {
    sureness = std::max(sureness, most);
}

// Adds what speaks against an assumption, which is then at most so sure.
void Object(Assumption& assumption, Certainty most, std::string objection) {
    Lower(assumption.Sureness, most);
    assumption.Objections.push_back(std::move(objection));
}

// True for a letter with an accent, and for what else texts in another encoding come to as one of the West.
bool IsRareInNames(char16_t c) {
    constexpr std::u16string_view Marks = u"ŒœŠšŸŽžƒˆ˜–—‘’‚“”„†‡•…‰‹›€™";
    return (c >= 0x80 && c < 0xA0) || (c >= 0xC0 && c <= 0xFF) || Marks.find(c) != Marks.npos;
}

// True for names of "Âðåìÿ" and the like: more than half of their letters are rare ones.
bool AreNamesGarbled(const ReadingPlan& plan) {
    constexpr std::size_t FewLetters = 8;
    std::size_t plain = 0;
    std::size_t rare = 0;
    for (const PlannedColumn& column : plan.Columns) {
        for (const char16_t c : column.Name) ++(IsRareInNames(c) ? rare : plain);
    }
    return rare >= FewLetters && rare > plain;
}

Assumption TableOf(const ReadingPlan& plan) {
    const std::string columns = plan.Width == 1 ? Phrase("1 column") : Phrase("{} columns", plan.Width);
    Assumption table{"table", {}, Certainty::Certain, {}};
    table.Text = Phrase("{} from line {} on, {}", columns, plan.FirstLine, SeparatorInWords(plan.How));
    if (plan.How.IsLineQuoted) table.Text += ", " + Phrase("each line in quotes");
    if (plan.NamesLine != 0) table.Text += "; " + Phrase("names in line {}", plan.NamesLine);
    if (plan.UnitsLine != 0) table.Text += "; " + Phrase("units in line {}", plan.UnitsLine);
    if (plan.NamesLine == 0) Object(table, Certainty::Likely, Phrase("no line names the columns"));
    if (AreNamesGarbled(plan))
        Object(table, Certainty::Likely, Phrase("the names are in an encoding that is not read here"));
    if (plan.RowsLookedAt < FewRows)
        Object(table, Certainty::Likely, Phrase("only {} rows to judge by", plan.RowsLookedAt));
    return table;
}

void ObjectToOrder(Assumption& assumption, const FoundTimes& times) {
    if (times.Order == OrderProof::None) {
        Object(assumption, Certainty::Uncertain,
               Phrase("day and month could be swapped: no row tells which comes first"));
    } else if (times.Order == OrderProof::Custom) {
        Object(assumption, Certainty::Likely,
               Phrase("no row tells whether day or month comes first: it is the usual order of such dates"));
    } else if (times.Order == OrderProof::Steps) {
        const bool isDayFirst = times.Recipe.Style.Order == DateOrder::DayFirst;
        Object(assumption, Certainty::Likely,
               isDayFirst ? Phrase("that the day comes before the month follows from the distances of the "
                                   "rows alone")
                          : Phrase("that the month comes before the day follows from the distances of the "
                                   "rows alone"));
    }
}

Assumption TimesOf(const ReadingPlan& plan) {
    Assumption assumption{"times", {}, Certainty::Certain, {}};
    if (!plan.Times) {
        assumption.Text = Phrase("no row has a time");
        assumption.Sureness = Certainty::Uncertain;
        return assumption;
    }
    const FoundTimes& times = *plan.Times;
    const TimeRecipe& recipe = times.Recipe;
    assumption.Text = TimesInWords(plan);
    ObjectToOrder(assumption, times);
    if (recipe.Kind == TimeKind::Interval) {
        if (times.IsUnitNamed) {
            Object(assumption, Certainty::Likely,
                   Phrase("the interval is taken from the lines above the table"));
        } else {
            Object(assumption, Certainty::Uncertain, Phrase("nothing names the interval: it is an example"));
        }
        return assumption;
    }
    if (recipe.Kind == TimeKind::Parts && !times.IsNamed)
        Object(assumption, Certainty::Likely, Phrase("plain numbers may mean something else"));
    if (recipe.Kind == TimeKind::Number) {
        if (!times.IsUnitNamed) Object(assumption, Certainty::Uncertain, Phrase("the unit is not named"));
        if (!times.IsNamed)
            Object(assumption, Certainty::Likely, Phrase("plain numbers may mean something else"));
    }
    if (recipe.EndsDays)
        Object(assumption, Certainty::Likely,
               Phrase("midnight is taken for the end of the day that it names"));
    if (times.IsClockShort)
        Object(assumption, Certainty::Likely, Phrase("hours and minutes could be minutes and seconds"));
    if (recipe.HasUnknownYear()) {
        Object(assumption, Certainty::Likely,
               Phrase("nothing names the year: the times count from the start of a year"));
    } else if (recipe.Style.Year != 0) {
        Object(assumption, Certainty::Likely, Phrase("the year is taken from the lines above the table"));
    }
    if (times.Rival)
        Object(assumption, Certainty::Likely,
               Phrase("{} holds times as well", ColumnInWords(plan, *times.Rival)));
    if (times.Trial.Read < FewRows && plan.RowsLookedAt >= FewRows)
        Object(assumption, Certainty::Uncertain, Phrase("only {} rows to judge by", times.Trial.Read));
    return assumption;
}

Assumption RowsOf(const ReadingPlan& plan) {
    const TimeTrial& trial = plan.Times->Trial;
    Assumption rows{"rows", {}, Certainty::Certain, {}};
    rows.Text = Phrase("{} of the {} rows looked at have a time", trial.Read, plan.RowsLookedAt);
    if (plan.Times->Recipe.Kind == TimeKind::Interval)
        Lower(rows.Sureness, plan.Times->IsUnitNamed ? Certainty::Likely : Certainty::Uncertain);
    if (trial.Read < plan.RowsLookedAt) {
        const bool areMany = 20 * trial.Read < 19 * plan.RowsLookedAt;
        Object(rows, areMany ? Certainty::Uncertain : Certainty::Likely,
               Phrase("rows without a time: {}", plan.RowsLookedAt - trial.Read));
    }
    if (plan.EndsInTotal) {
        Object(rows, Certainty::Likely,
               Phrase("the last row has the time of the first: it seems to be a total"));
    } else if (trial.IsDescending()) {
        Object(rows, Certainty::Likely, Phrase("the newest row is the first"));
    } else if (trial.Falling > 0) {
        const bool areMany = trial.Falling > trial.Rising / 10;
        Object(rows, areMany ? Certainty::Uncertain : Certainty::Likely,
               Phrase("times fall back: {}", trial.Falling));
    }
    const bool areDays = plan.Times->Recipe.IsAbsolute && trial.MedianStep % DayLength == 0;
    if (trial.Equal > 0)
        Object(rows, areDays ? Certainty::Uncertain : Certainty::Likely,
               Phrase("times repeat: {}", trial.Equal));
    return rows;
}

Assumption UnitsOf(const ReadingPlan& plan) {
    const auto count = std::count_if(plan.Columns.begin(), plan.Columns.end(),
                                     [](const PlannedColumn& column) { return !column.Unit.empty(); });
    const std::string columns = count == 1 ? Phrase("1 column") : Phrase("{} columns", count);
    if (count == 0) return {};
    const bool hasLine = plan.UnitsLine != 0;
    return {"units",
            hasLine ? Phrase("{} with units, from line {}", columns, plan.UnitsLine)
                    : Phrase("{} with units, from the names or the cells", columns),
            hasLine ? Certainty::Certain : Certainty::Likely,
            {}};
}

Assumption TypesAssumed(const ReadingPlan& plan) {
    std::array<std::size_t, TypeCount> counts{};
    for (const PlannedColumn& column : plan.Columns) {
        if (!column.IsTime) ++counts.at(static_cast<std::size_t>(column.Type));
    }
    Assumption types{"types", {}, Certainty::Certain, {}};
    for (std::size_t i = TypeCount; i-- > 0;) {
        if (counts.at(i) == 0) continue;
        if (!types.Text.empty()) types.Text += ", ";
        types.Text += TypesInWords(static_cast<ColumnType>(i)) + ": " + std::to_string(counts.at(i));
    }
    if (!plan.IsWholeLookedAt)
        Object(types, Certainty::Likely,
               Phrase("{} of the file were looked at", RowsInWords(plan.RowsLookedAt)));
    return types;
}
// How the file goes with the others that were looked at.
Assumption FilesOf(const Kinship& kin) {
    Assumption files{"files", {}, Certainty::Certain, {}};
    if (!kin.PlanFile.empty()) {
        files.Text = Phrase("read by the plan in {}", Utf16ToUtf8(kin.PlanFile));
    } else if (kin.Files > 1) {
        files.Text = Phrase("one of {} files of one kind, all read alike", kin.Files);
    } else {
        files.Text = Phrase("none of the other {} files is of its kind", kin.Others);
    }
    if (!kin.OrderFile.empty())
        files.Text += "; " + Phrase("{} shows the order of day and month", Utf16ToUtf8(kin.OrderFile));
    for (const std::string& difference : kin.Differences)
        Object(files, Certainty::Likely,
               kin.PlanFile.empty() ? Phrase("unlike most of the files, {}", difference) : difference);
    return files;
}
}  // namespace

std::string SeparatorInWords(const Cut& how) {
    switch (how.Separator) {
        case u';':
            return Phrase("separated by semicolons");
        case u',':
            return Phrase("separated by commas");
        case u'\t':
            return Phrase("separated by tabs");
        case u' ':
            return Phrase("separated by blanks");
        case u'|':
            return Phrase("separated by bars");
        case u':':
            return Phrase("separated by colons");
        default:
            return Phrase("without a separator");
    }
}

std::string TypesInWords(ColumnType type) {
    switch (type) {
        case ColumnType::Character:
            return Phrase("characters");
        case ColumnType::Boolean:
            return Phrase("truth values");
        case ColumnType::Integer:
            return Phrase("whole numbers");
        case ColumnType::Hexadecimal:
            return Phrase("hexadecimal numbers");
        case ColumnType::Float:
            return Phrase("decimal numbers");
        default:
            return Phrase("texts");
    }
}

std::vector<Assumption> Assumptions(const ReadingPlan& plan) {
    std::vector<Assumption> all = {TableOf(plan), TimesOf(plan)};
    if (plan.Times) all.push_back(RowsOf(plan));
    all.push_back(UnitsOf(plan));
    all.push_back(TypesAssumed(plan));
    if (plan.Kin) all.push_back(FilesOf(*plan.Kin));
    std::erase_if(all, [](const Assumption& one) { return one.Text.empty(); });
    return all;
}

Certainty SurenessOf(const std::vector<Assumption>& assumptions) {
    Certainty least = Certainty::Certain;
    for (const Assumption& one : assumptions) {
        if (one.Kind == "table" || one.Kind == "times" || one.Kind == "rows") Lower(least, one.Sureness);
    }
    return least;
}
}  // namespace kelvarin::plan
