#include "host/plan/CopyCell.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "platform/framework/Text.h"

namespace kelvarin::plan {
namespace {
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
    const bool isWrittenAnew = number.find_first_of(u" Dd\x2212\x2013") != number.npos;
    if (thousands == u'\0' && !isWrittenAnew) {
        AppendNarrow(number, decimal == u'\0' ? u'.' : decimal, '.', out);
        return true;
    }
    for (const char16_t c : number) {
        if (c == u' ' || (c == thousands && thousands != u'\0')) continue;
        if (c == MinusSign || c == EnDash) {
            out += '-';
            continue;
        }
        const char16_t written = c == decimal ? u'.' : c == u'D' || c == u'd' ? u'E' : c;
        out += static_cast<char>(written);
    }
    return true;
}
}  // namespace

void AppendTextCell(std::u16string_view text, std::string& out) {
    // Without a branch a character, many characters take one step.
    bool isPlain = true;
    bool hasBlank = false;
    for (const char16_t c : text) {
        isPlain &= c >= u' ' && c < 0x7F && c != u'"';
        hasBlank |= c == u' ';
    }
    if (isPlain) {
        if (hasBlank) out += '"';
        AppendNarrow(text, u'\0', '\0', out);
        if (hasBlank) out += '"';
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

CellCopier::CellCopier(const PlannedColumn& column, ColumnType type, char16_t mark,
                       const CellCounts* elsewhere)
    : Column(column),
      Own(KindOf(type)),
      Mark(mark),
      Elsewhere(elsewhere),
      Quick(column.Unit, Own != Kind::Texts) {}

// False for a cell that is neither empty nor a plain number.
bool CellCopier::AppendPlain(std::u16string_view cell, RowText& out) {
    if (cell.empty()) {
        Plain.Add(CellLook::Empty);
        return true;
    }
    const PlainNumber plain = LookAtPlainNumber(cell, Mark);
    if (plain.Digits == 0) return false;
    All.Add(cell, Mark);
    Numbers += plain.HasMark && Mark != u'.';
    Written.clear();
    AppendNarrow(cell, Own == Kind::Texts ? u'\0' : Mark, '.', Written);
    out.Add(Written);
    return true;
}

void CellCopier::AppendNew(std::u16string_view cell, RowText& out) {
    WriteAnew(cell);
    out.Add(Written);
    TextMemo::Entry* const place = Memo.Place();
    if (place == nullptr) return;
    CountRepeats(*place);
    Memo.Remember(*place, cell, Written);
}

void CellCopier::WriteAnew(std::u16string_view cell) {
    const CellFacts facts = FactsOf(cell);
    All.Add(cell, Mark, facts);
    Quick.Learn(All);
    if (Rewrite(cell, facts, 1) && Own != Kind::Texts) {
        Written = Rewritten;
    } else {
        Written.clear();
        AppendTextCell(cell, Written);
    }
}

// The first of them was counted when it came: it may be the first text of the column.
void CellCopier::CountRepeats(TextMemo::Entry& entry) {
    if (entry.Repeats == 0) return;
    const CellFacts facts = FactsOf(entry.Cell);
    All.Add(entry.Cell, Mark, facts, entry.Repeats);
    Rewrite(entry.Cell, facts, entry.Repeats);
    entry.Repeats = 0;
}

void CellCopier::CountRepeats() {
    for (TextMemo::Entry& entry : Memo.All()) CountRepeats(entry);
}

// True if Rewritten is what the column gets in place of each of the cells, all of one text; counts them.
bool CellCopier::Rewrite(std::u16string_view cell, const CellFacts& facts, std::uint64_t cells) {
    Rewritten.clear();
    if (facts.Number) return RewriteNumber(cell, *facts.Number, cells);
    if (facts.IsMissing) {
        Markers += cells;
        return true;
    }
    if (RewriteAmount(cell)) {
        Numbers += cells;
        return true;
    }
    HasUnclearTruth |= facts.Truth == TruthWord::Unclear;
    if (facts.Truth != TruthWord::True && facts.Truth != TruthWord::False) return false;
    Rewritten = facts.Truth == TruthWord::True ? "true" : "false";
    if (IsRewritten(cell)) Truths += cells;
    return Own == Kind::Truths;
}

bool CellCopier::RewriteNumber(std::u16string_view cell, const NumberLook& look, std::uint64_t cells) {
    if (!AppendNumber(cell, look, Mark, Rewritten)) return false;
    if (IsRewritten(cell)) Numbers += cells;
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

CellCounts CellCopier::Counts() {
    CountRepeats();
    CellCounts counts = All;
    Plain.AddTo(counts);
    Quick.AddTo(counts);
    return counts;
}

std::uint64_t CellCopier::RewrittenNumbers() {
    CountRepeats();
    return Numbers + Quick.Amounts() + (Mark == u'.' ? 0 : Plain.Decimals());
}

ColumnType CellCopier::Type() {
    CellCounts known = Counts();
    if (Elsewhere != nullptr) known.Add(*Elsewhere);
    const ColumnType type = known.Type(!Column.Unit.empty() || IsCountName(Column.Name));
    return type == ColumnType::Boolean && HasUnclearTruth ? ColumnType::Text : type;
}

bool CellCopier::IsWrongType() {
    const Kind kind = KindOf(Type());
    if (kind == Own) return false;
    const bool isBetweenNumbers = kind != Kind::Texts && Own != Kind::Texts;
    return isBetweenNumbers ? Truths > 0 : RewrittenNumbers() + Truths + Markers > 0;
}

std::uint64_t CellCopier::ChangedValues() {
    return Own == Kind::Texts ? 0 : RewrittenNumbers() + (Own == Kind::Truths ? Truths : 0);
}

std::uint64_t CellCopier::ChangedMarkers() {
    CountRepeats();
    return Own == Kind::Texts ? 0 : Markers;
}
}  // namespace kelvarin::plan
