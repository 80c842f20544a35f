#include "host/plan/CopyCell.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
bool IsPlain(char16_t c) {
    return c > u' ' && c < 0x7F && c != u'"';
}

// Appends a text of ASCII characters, one of them replaced.
void AppendNarrow(std::u16string_view text, char16_t from, char to, std::string& out) {
    const std::size_t begin = out.size();
    out.resize(begin + text.size());
    char* next = out.data() + begin;
    for (const char16_t c : text) *next++ = c == from ? to : static_cast<char>(c);
}

// A number as the module reads it; false for one whose decimal mark can't be told from one of thousands.
bool AppendNumber(std::u16string_view number, const NumberLook& look, char16_t mark, std::string& out) {
    char16_t decimal = look.Mark;
    char16_t thousands = look.Thousands;
    if (decimal != u'\0' && decimal != mark && thousands == u'\0') {
        // "1,234" where the point is the decimal mark.
        const bool isGroup = !look.HasExponent && look.Digits > 0 && look.Digits <= 3 &&
                             number.size() - number.find(decimal) == 4;
        if (!isGroup) return false;
        thousands = decimal;
        decimal = u'\0';
    }
    for (const char16_t c : number) {
        if (c == u' ' || (c == thousands && thousands != u'\0')) continue;
        const char16_t written = c == decimal ? u'.' : c == u'D' || c == u'd' ? u'E' : c;
        out += static_cast<char>(written);
    }
    return true;
}
}  // namespace

void AppendTextCell(std::u16string_view text, std::string& out) {
    if (std::all_of(text.begin(), text.end(), IsPlain)) {
        AppendNarrow(text, u'\0', '\0', out);
        return;
    }
    std::u16string safe(text);
    std::replace_if(
        safe.begin(), safe.end(), [](char16_t c) { return c == u'\0' || c == u'\n' || c == u'\r'; }, u' ');
    const bool isQuoted = safe.find_first_of(u" \t\"") != safe.npos;
    if (isQuoted) safe = u'"' + ReplaceAll(std::move(safe), u"\"", u"\"\"") + u'"';
    out += Utf16ToUtf8(safe);
}

CellCopier::Kind CellCopier::KindOf(ColumnType type) {
    if (type == ColumnType::Text || type == ColumnType::Character) return Kind::Texts;
    return type == ColumnType::Boolean ? Kind::Truths : Kind::Numbers;
}

CellCopier::CellCopier(const PlannedColumn& column, ColumnType type, char16_t mark)
    : Column(column), Own(KindOf(type)), Mark(mark) {}

void CellCopier::Append(std::u16string_view cell, std::string& out) {
    All.Add(cell, Mark);
    if (cell.empty()) return;
    if (const PlainNumber plain = LookAtPlainNumber(cell, Mark); plain.Digits != 0) {
        Numbers += plain.HasMark && Mark != u'.';
        AppendNarrow(cell, Own == Kind::Texts ? u'\0' : Mark, '.', out);
        return;
    }
    Rewritten.clear();
    if (Rewrite(cell) && Own != Kind::Texts) {
        out += Rewritten;
    } else {
        AppendTextCell(cell, out);
    }
}

// True if Rewritten is what the column gets in place of the cell; counts it.
bool CellCopier::Rewrite(std::u16string_view cell) {
    if (const std::optional<NumberLook> look = LookAtNumber(cell)) return RewriteNumber(cell, *look);
    if (IsMissing(cell)) {
        ++Markers;
        return true;
    }
    if (RewriteAmount(cell)) {
        ++Numbers;
        return true;
    }
    const TruthWord truth = TruthOf(cell);
    HasUnclearTruth |= truth == TruthWord::Unclear;
    if (truth != TruthWord::True && truth != TruthWord::False) return false;
    Rewritten = truth == TruthWord::True ? "true" : "false";
    if (IsRewritten(cell)) ++Truths;
    return Own == Kind::Truths;
}

bool CellCopier::RewriteNumber(std::u16string_view cell, const NumberLook& look) {
    if (!AppendNumber(cell, look, Mark, Rewritten)) return false;
    Numbers += IsRewritten(cell);
    return true;
}

// "12.3 V" and "+  12.3 V" in a column whose unit is V.
bool CellCopier::RewriteAmount(std::u16string_view cell) {
    if (Column.Unit.empty() || !cell.ends_with(Column.Unit)) return false;
    cell = TrimWhiteSpace(cell.substr(0, cell.size() - Column.Unit.size()));
    const bool isSigned = !cell.empty() && (cell.front() == u'+' || cell.front() == u'-');
    if (isSigned && cell.front() == u'-') Rewritten = '-';
    if (isSigned) cell = TrimWhiteSpace(cell.substr(1));
    const std::optional<NumberLook> look = LookAtNumber(cell);
    const bool isSignedTwice = look && !IsDigit(cell.front()) && isSigned;
    return look && !isSignedTwice && AppendNumber(cell, *look, Mark, Rewritten);
}

bool CellCopier::IsRewritten(std::u16string_view cell) const {
    return !std::equal(Rewritten.begin(), Rewritten.end(), cell.begin(), cell.end(),
                       [](char a, char16_t b) { return static_cast<char16_t>(a) == b; });
}

CellCounts CellCopier::Counts() const {
    CellCounts counts = All;
    Plain.AddTo(counts);
    return counts;
}

std::uint64_t CellCopier::RewrittenNumbers() const {
    return Numbers + (Mark == u'.' ? 0 : Plain.Decimals());
}

ColumnType CellCopier::Type() const {
    const ColumnType type = Counts().Type(!Column.Unit.empty() || IsCountName(Column.Name));
    return type == ColumnType::Boolean && HasUnclearTruth ? ColumnType::Text : type;
}

bool CellCopier::IsWrongType() const {
    const Kind kind = KindOf(Type());
    if (kind == Own) return false;
    const bool isBetweenNumbers = kind != Kind::Texts && Own != Kind::Texts;
    return isBetweenNumbers ? Truths > 0 : RewrittenNumbers() + Truths + Markers > 0;
}

std::uint64_t CellCopier::ChangedValues() const {
    return Own == Kind::Texts ? 0 : RewrittenNumbers() + (Own == Kind::Truths ? Truths : 0);
}

std::uint64_t CellCopier::ChangedMarkers() const {
    return Own == Kind::Texts ? 0 : Markers;
}
}  // namespace kelvarin::plan
