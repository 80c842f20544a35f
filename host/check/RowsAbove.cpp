#include "host/check/RowsAbove.h"

#include <algorithm>
#include <functional>

#include "host/check/SourceLines.h"
#include "platform/framework/Text.h"

namespace kelvarin::check {

namespace {

constexpr std::uint64_t EndOfSearch = 1000;
constexpr int NamedSeparators = 4;

using RowTest = std::function<bool(const std::u16string& line)>;

bool IsPartOfNumber(char16_t c, char16_t separator) {
    return IsDigit(c) ||
           (c != separator && std::u16string_view(u"+-.,:").find(c) != std::u16string_view::npos);
}

// The line with every number as a zero.
std::u16string ShapeOf(const std::u16string& line, char16_t separator) {
    std::u16string shape;
    for (const char16_t c : line) {
        if (!IsPartOfNumber(c, separator)) {
            shape += c;
        } else if (shape.empty() || shape.back() != u'0') {
            shape += u'0';
        }
    }
    return shape;
}

bool HasText(const std::u16string& line) {
    return !TrimWhiteSpace(line).empty();
}

RowTest TestByShape(const std::u16string& path, const TimeSource& reading) {
    SourceLines lines(path);
    const char16_t separator = reading.SeparatorSign();
    const bool found = lines.GoTo(static_cast<std::uint64_t>(reading.FirstDataLine));
    const std::u16string shape = found ? ShapeOf(lines.Text(), separator) : std::u16string();
    return [=](const std::u16string& line) { return ShapeOf(line, separator) == shape; };
}

// The probe must outlive the test.
RowTest TestByTime(TimeProbe& probe, const RowSearch& search) {
    return [&probe, before = search.BeforeTime](const std::u16string& line) {
        const std::optional<ProbedTime> probed = probe.Read(line);
        if (!probed || !probed->Reads) return false;
        return !before || !probed->Time || *probed->Time < *before;
    };
}

RowsAbove FindLongest(const std::u16string& path, std::uint64_t end, const RowTest& isRow) {
    RowsAbove longest, current;
    bool hadText = false;
    SourceLines lines(path);
    for (std::uint64_t line = 1; line < std::min(end, EndOfSearch) && lines.GoTo(line); ++line) {
        const bool hasText = HasText(lines.Text());
        if (!hasText || !isRow(lines.Text())) {
            current = {};
        } else if (current.First == 0) {
            current = {line, line, hadText};
        } else {
            current.Last = line;
        }
        const bool isLonger =
            longest.First == 0 || current.Last - current.First >= longest.Last - longest.First;
        if (current.First != 0 && isLonger) longest = current;
        hadText = hasText;
    }
    // A number in a preamble may read as a time by chance.
    const bool isLong = longest.Last - longest.First >= 2 || longest.Last + 1 == end;
    return isLong ? longest : RowsAbove{};
}

}  // namespace

RowsAbove FindRowsAbove(const std::u16string& path, const TimeSource& reading, const ModuleLoader& module,
                        const RowSearch& search) {
    if (reading.IsInterval) {
        RowsAbove rows = FindLongest(path, search.End, TestByShape(path, reading));
        rows.Separator = reading.Separator;
        return rows;
    }
    TimeSource tried = reading;
    for (int i = -1; i < (search.AnySeparator ? NamedSeparators : 0); ++i) {
        if (i == reading.Separator) continue;
        if (i >= 0) tried.Separator = i;
        TimeProbe probe(module, tried);
        RowsAbove rows = FindLongest(path, search.End, TestByTime(probe, search));
        rows.Separator = tried.Separator;
        if (rows.First != 0) return rows;
    }
    return {};
}

}  // namespace kelvarin::check
