// Copies of small files by hand-made plans, for the tests of copies.
#pragma once

#include <string>
#include <vector>

#include "host/plan/CleanCopy.h"
#include "kit/Workdir.h"
#include "platform/framework/File.h"
#include "platform/framework/Text.h"

namespace copies {
using namespace kelvarin::plan;

inline constexpr std::int64_t OneSecond = 1'000'000'000;

// Columns as "Zeit@ Druck|bar#f Ort#t": a name, "@" for a column of the time, a unit after "|", and a type
// after "#" (t text, c character, b boolean, i integer, h hexadecimal, f float; float without one).
inline std::vector<PlannedColumn> ColumnsOf(std::string text) {
    std::vector<PlannedColumn> columns;
    constexpr std::string_view Types = "tcbihf";
    while (!text.empty()) {
        std::string one = text.substr(0, text.find(' '));
        text.erase(0, one.size() + 1);
        PlannedColumn column;
        column.Type = ColumnType::Float;
        if (const std::size_t at = one.find('#'); at != one.npos) {
            column.Type = static_cast<ColumnType>(Types.find(one[at + 1]));
            one.erase(at);
        }
        if (const std::size_t at = one.find('|'); at != one.npos) {
            column.Unit = Utf8ToUtf16(one.substr(at + 1));
            one.erase(at);
        }
        column.IsTime = one.ends_with('@');
        if (column.IsTime) one.pop_back();
        column.Name = Utf8ToUtf16(one == "-" ? "" : one);
        columns.push_back(column);
    }
    return columns;
}

// A plan for lines separated by semicolons, with the names in line 1.
inline ReadingPlan PlanOf(const std::string& columns, const TimeRecipe& recipe, char16_t mark = u'.') {
    ReadingPlan plan;
    plan.How.Separator = u';';
    plan.Columns = ColumnsOf(columns);
    plan.Width = plan.Columns.size();
    plan.NamesLine = 1;
    plan.FirstLine = 2;
    plan.Mark = mark;
    plan.Times.emplace();
    plan.Times->Recipe = recipe;
    for (std::size_t i = 0; i < plan.Columns.size(); ++i) {
        if (plan.Columns[i].IsTime && recipe.Parts.empty()) plan.Times->Recipe.Columns.push_back(i);
    }
    return plan;
}

inline TimeRecipe Text() {
    TimeRecipe recipe;
    recipe.IsAbsolute = true;
    return recipe;
}

inline TimeRecipe Number(std::int64_t unit, char16_t mark = u'.') {
    TimeRecipe recipe;
    recipe.Kind = TimeKind::Number;
    recipe.Unit = unit;
    recipe.Mark = mark;
    return recipe;
}

struct Copied {
    CopyResult Result;
    std::string Text;  // without the byte order mark, "|" for a tab
};

inline Copied CopyOf(const std::string& text, const ReadingPlan& plan, CopyOptions options = {}) {
    const Workdir folder;
    const std::u16string source = folder.Write("source.csv", text);
    Copied copied{WriteCleanCopy(source, plan, folder.Path("copy.csv"), options), folder.Read("copy.csv")};
    EXPECT_EQ(copied.Result.Failure, "");
    EXPECT_TRUE(copied.Text.starts_with("\xEF\xBB\xBF"));
    copied.Text.erase(0, 3);
    for (char& c : copied.Text) c = c == '\t' ? '|' : c;
    EXPECT_EQ(folder.Read("source.csv"), text);
    EXPECT_EQ(folder.Names(), "copy.csv source.csv");
    return copied;
}

// The lines of the file that the lines of the copy come from.
inline std::string LinesOf(const CopyResult& result) {
    std::string text;
    for (std::uint64_t i = 1; i <= result.Lines.Count(); ++i)
        text += (text.empty() ? "" : " ") + std::to_string(result.Lines.SourceLine(i));
    return text;
}

inline std::string ShownLines(const char* kind, const LinesLeftOut& lines) {
    if (lines.Count == 0) return {};
    std::string text = std::string(" ") + kind + " " + std::to_string(lines.Count) + ":";
    for (const std::uint64_t line : lines.First) text += " " + std::to_string(line);
    return text;
}

inline std::string LeftOut(const CopyRows& rows) {
    return ShownLines("blank", rows.Blank) + ShownLines("header", rows.Headers) +
           ShownLines("timeless", rows.Timeless) + ShownLines("other", rows.OtherTable);
}
}  // namespace copies
