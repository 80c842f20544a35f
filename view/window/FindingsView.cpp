#include "view/window/FindingsView.h"

#include <QFontDatabase>
#include <QHeaderView>
#include <QScrollBar>
#include <QSyntaxHighlighter>
#include <QTextBlock>
#include <algorithm>
#include <array>

#include "host/language/Phrase.h"
#include "platform/framework/Text.h"
#include "view/dialog/QtText.h"
#include "view/window/RowCopier.h"

namespace kelvarin::view {
namespace {
constexpr int LineRole = Qt::UserRole;

QString Worded(const std::string& text) {
    return QString::fromStdString(text);
}

void AddLines(QTreeWidgetItem& parent, const std::vector<std::uint64_t>& lines) {
    for (const std::uint64_t line : lines) {
        auto* const item = new QTreeWidgetItem(&parent, {Worded(Phrase("line {}", line))});
        item->setData(0, LineRole, static_cast<qulonglong>(line));
    }
    if (!lines.empty()) parent.setData(0, LineRole, static_cast<qulonglong>(lines.front()));
}

QColor Tinted(const QPalette& palette, std::size_t column) {
    constexpr std::array<QRgb, 6> Tints = {0xFF1F6FB4, 0xFFC8501E, 0xFF2E8B3D,
                                           0xFF8E44AD, 0xFFB8860B, 0xFF0F8B8D};
    const QColor tint(Tints[column % Tints.size()]);
    const QColor base = palette.color(QPalette::Base);
    const auto mix = [](int one, int other) { return (one + 5 * other) / 6; };
    return {mix(tint.red(), base.red()), mix(tint.green(), base.green()), mix(tint.blue(), base.blue())};
}
// A mark in place of each character that would be obeyed: cells stay where they are in the line.
QString WithoutObeyed(QString text) {
    for (QChar& unit : text) {
        if (unit != u'\t' && IsObeyed(unit.unicode())) unit = QChar::ReplacementCharacter;
    }
    return text;
}

// Each cell in the tint of its column. The formats of a line are made once: selections would be gone through
// whenever something is drawn.
class ColumnTints : public QSyntaxHighlighter {
  public:
    using Spans = std::function<std::vector<std::pair<int, int>>(int line)>;

    ColumnTints(QPlainTextEdit& view, Spans cells)
        : QSyntaxHighlighter(view.document()), View(view), Cells(std::move(cells)) {}

  protected:
    void highlightBlock(const QString&) override {
        std::size_t column = 0;
        for (const auto& [begin, length] : Cells(currentBlock().blockNumber())) {
            QTextCharFormat tint;
            tint.setBackground(Tinted(View.palette(), column++));
            setFormat(begin, length, tint);
        }
    }

  private:
    const QPlainTextEdit& View;
    const Spans Cells;
};
}  // namespace

FindingsView::FindingsView(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    new RowCopier(*this);
    const auto show = [this](const QTreeWidgetItem* item) {
        const std::uint64_t line = item == nullptr ? 0 : item->data(0, LineRole).toULongLong();
        if (line != 0 && OnLine) OnLine(line);
    };
    QObject::connect(this, &QTreeWidget::itemClicked, this, show);
    QObject::connect(this, &QTreeWidget::itemActivated, this, show);
}

void FindingsView::Show(const ImportedFile* file) {
    clear();
    if (file == nullptr) return;
    for (const check::Finding& finding : file->Findings) {
        auto* const item = new QTreeWidgetItem(this, {ShownText(finding.Text)});
        item->setIcon(0, style()->standardIcon(finding.IsFault ? QStyle::SP_MessageBoxWarning
                                                               : QStyle::SP_MessageBoxInformation));
        if (!finding.Advice.Text.empty()) item->setToolTip(0, ShownText(finding.Advice.Text));
        AddLines(*item, finding.Lines);
    }
    for (const MessageGroup& group : file->Messages) {
        auto* const item = new QTreeWidgetItem(this, {ShownText(Utf16ToUtf8(group.FirstText))});
        item->setIcon(0, style()->standardIcon(group.Failure ? QStyle::SP_MessageBoxCritical
                                                             : QStyle::SP_MessageBoxWarning));
        std::vector<std::uint64_t> lines = group.Lines;
        std::erase(lines, 0u);
        AddLines(*item, lines);
    }
    if (topLevelItemCount() == 0) {
        auto* const item = new QTreeWidgetItem(this, {Worded(Phrase("Nothing was found"))});
        item->setFlags(Qt::NoItemFlags);
    }
}

void FindingsView::SelectLine(std::uint64_t line) {
    QTreeWidgetItem* best = nullptr;
    std::uint64_t bestLine = 0;
    for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it) {
        const std::uint64_t at = (*it)->data(0, LineRole).toULongLong();
        if ((*it)->parent() == nullptr || at > line || at < bestLine) continue;
        bestLine = at;
        best = *it;
    }
    if (best != nullptr) setCurrentItem(best);
}

FileTextView::FileTextView(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    // The numbers of lines stay at the left of texts that run from right to left.
    QTextOption direction = document()->defaultTextOption();
    direction.setTextDirection(Qt::LeftToRight);
    document()->setDefaultTextOption(direction);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    Tints = new ColumnTints(*this, [this](int line) { return CellsOf(static_cast<std::size_t>(line)); });
}

void FileTextView::Show(std::vector<FileLine> lines, std::uint64_t marked) {
    Lines = std::move(lines);
    Digits = Lines.empty() ? 1 : static_cast<int>(std::to_string(Lines.back().Number).size());
    QString text;
    for (const FileLine& line : Lines) {
        text += QString::number(line.Number).rightJustified(Digits) + "  ";
        text += WithoutObeyed(QString::fromStdString(line.Text)) + "\n";
    }
    text.chop(1);
    setPlainText(text);
    Mark(marked);
}

// Where the cells of a line are in the text that is shown, behind its number.
std::vector<std::pair<int, int>> FileTextView::CellsOf(std::size_t line) const {
    if (line >= Lines.size()) return {};
    std::vector<std::pair<int, int>> cells = Lines[line].Cells;
    for (auto& cell : cells) cell.first += Digits + 2;
    return cells;
}

void FileTextView::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && Tints != nullptr) Tints->rehighlight();
}

bool FileTextView::Mark(std::uint64_t line) {
    const auto found = std::find_if(Lines.begin(), Lines.end(),
                                    [line](const FileLine& shown) { return shown.Number == line; });
    if (found == Lines.end()) {
        setExtraSelections({});
        return false;
    }
    const QTextCursor cursor(document()->findBlockByNumber(static_cast<int>(found - Lines.begin())));
    QTextEdit::ExtraSelection mark;
    mark.cursor = cursor;
    mark.format.setBackground(palette().color(QPalette::Highlight).lighter(160));
    mark.format.setProperty(QTextFormat::FullWidthSelection, true);
    setExtraSelections({mark});
    const bool isSeen = viewport()->rect().contains(0, cursorRect(cursor).center().y());
    const int aside = horizontalScrollBar()->value();
    setTextCursor(cursor);
    if (!isSeen) centerCursor();
    horizontalScrollBar()->setValue(aside);
    return true;
}

void FileTextView::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    const auto block = static_cast<std::size_t>(textCursor().blockNumber());
    if (!textCursor().hasSelection() && block < Lines.size() && OnLine) OnLine(Lines[block].Number);
}
}  // namespace kelvarin::view
