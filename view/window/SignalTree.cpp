#include "view/window/SignalTree.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QMimeData>
#include <algorithm>

#include "host/Words.h"
#include "host/language/Phrase.h"
#include "view/dialog/QtText.h"
#include "view/plot/PlotArea.h"

namespace kelvarin::view {
namespace {
enum Column { NameColumn, UnitColumn, CourseColumn, SamplesColumn, RangeColumn, TypeColumn, ColumnCount };
constexpr int PathRole = Qt::UserRole;
constexpr int CourseWidth = 12;               // characters
constexpr int NumberRole = Qt::UserRole + 1;  // of the signal in its file

QString Said(const std::string& text) {
    return QString::fromStdString(text);
}

QString TypeText(const PlottedSignal& signal) {
    switch (signal.Type()) {
        case KelvarinBool:
            return Said(Phrase("truth value"));
        case KelvarinInt64:
            return Said(Phrase("integer"));
        case KelvarinDouble:
            return Said(Phrase("number"));
        default:
            return Said(Phrase("text"));
    }
}

QString RangeText(const PlottedSignal& signal) {
    const store::NumberRange range = signal.Summary().Plot.Range();
    if (range.IsEmpty() || signal.Kind() != SignalKind::Number) return {};
    return Said(ShortestText(range.Lowest) + " … " + ShortestText(range.Highest));
}

void Fill(QTreeWidgetItem& item, const PlottedSignal& signal) {
    item.setText(NameColumn, ShownText(signal.Name()));
    item.setText(UnitColumn, ShownText(signal.Unit()));
    item.setText(TypeColumn, TypeText(signal));
    item.setText(SamplesColumn, QLocale().toString(static_cast<qulonglong>(signal.Summary().Count)));
    item.setTextAlignment(SamplesColumn, Qt::AlignRight | Qt::AlignVCenter);
    item.setText(RangeColumn, RangeText(signal));
    item.setText(CourseColumn, Said(signal.Summary().Plot.Draw(CourseWidth)));
}
}  // namespace

SignalTree::SignalTree(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(ColumnCount);
    setHeaderLabels({Said(Phrase("Signal")), Said(Phrase("Unit")), Said(Phrase("Course")),
                     Said(Phrase("Samples")), Said(Phrase("Range")), Said(Phrase("Type"))});
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setUniformRowHeights(true);
    const int course = fontMetrics().horizontalAdvance(QString(CourseWidth, QChar(0x2588)));
    const int widths[] = {150, 55, course + 12, 55, 120};
    setIndentation(12);
    for (int column = 0; column < TypeColumn; ++column) header()->resizeSection(column, widths[column]);
    QObject::connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        const SignalPointer signal = SignalOf(item);
        if (IsFilling || column != NameColumn || signal == nullptr || !OnTicked) return;
        OnTicked(signal, item->checkState(NameColumn) == Qt::Checked);
    });
}

QTreeWidgetItem* SignalTree::FileItem(const QString& path) {
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (topLevelItem(i)->data(NameColumn, PathRole).toString() == path) return topLevelItem(i);
    }
    auto* const item = new QTreeWidgetItem(this);
    item->setText(NameColumn, ShownText(QFileInfo(path).fileName().toStdString()));
    item->setToolTip(NameColumn, path);
    item->setData(NameColumn, PathRole, path);
    item->setData(NameColumn, NumberRole, -1);
    item->setFirstColumnSpanned(true);
    item->setExpanded(true);
    return item;
}

SignalPointer SignalTree::SignalOf(const QTreeWidgetItem* item) const {
    if (item == nullptr || item->parent() == nullptr) return nullptr;
    const QString path = item->parent()->data(NameColumn, PathRole).toString();
    const int number = item->data(NameColumn, NumberRole).toInt();
    for (const ShownFile& file : Files) {
        const bool isIt =
            file.Path == path && number >= 0 && static_cast<std::size_t>(number) < file.Signals.size();
        if (isIt) return file.Signals[static_cast<std::size_t>(number)];
    }
    return nullptr;
}

void SignalTree::ShowFile(const std::shared_ptr<const ImportedFile>& file, const PlotModel& model) {
    IsFilling = true;
    const QString path = ToQt(file->Path);
    std::erase_if(Files, [&](const ShownFile& other) { return other.Path == path; });
    Files.push_back({path, file->Signals});
    QTreeWidgetItem* const parent = FileItem(path);
    // Without its current signal the tree would take another file for the current one.
    const int current = parent->indexOfChild(currentItem());
    if (current >= 0) setCurrentItem(parent);
    qDeleteAll(parent->takeChildren());
    QList<QTreeWidgetItem*> items;
    for (std::size_t i = 0; i < file->Signals.size(); ++i) {
        auto* const item = new QTreeWidgetItem;
        Fill(*item, *file->Signals[i]);
        item->setData(NameColumn, NumberRole, static_cast<int>(i));
        item->setCheckState(NameColumn, model.Has(*file->Signals[i]) ? Qt::Checked : Qt::Unchecked);
        items.push_back(item);
    }
    if (items.isEmpty()) {
        auto* const item = new QTreeWidgetItem({Said(file->Failure)});
        item->setData(NameColumn, NumberRole, -1);
        item->setFlags(Qt::ItemIsEnabled);
        items.push_back(item);
    }
    parent->addChildren(items);
    parent->setExpanded(true);
    if (current >= 0 && current < parent->childCount()) setCurrentItem(parent->child(current));
    if (currentItem() == nullptr) setCurrentItem(parent);
    IsFilling = false;
    Filter(Wanted);
}

void SignalTree::ShowGrowing(const QString& path, const std::vector<GrowingSignal>& grown) {
    IsFilling = true;
    QTreeWidgetItem* const parent = FileItem(path);
    const bool isOfFile =
        parent->childCount() != 0 && parent->child(0)->data(NameColumn, NumberRole).toInt() >= 0;
    // A file that is read anew keeps what is shown until it is there.
    for (std::size_t i = 0; i < grown.size() && !isOfFile; ++i) {
        const int row = static_cast<int>(i);
        QTreeWidgetItem* item = parent->child(row);
        if (item == nullptr) {
            item = new QTreeWidgetItem(parent);
            item->setData(NameColumn, NumberRole, -1);
            item->setText(NameColumn, ShownText(grown[i].Name));
        }
        item->setText(UnitColumn, ShownText(grown[i].Unit));
        item->setText(SamplesColumn, QLocale().toString(static_cast<qulonglong>(grown[i].Samples)));
        item->setText(CourseColumn, Said(grown[i].Course));
    }
    parent->setExpanded(true);
    IsFilling = false;
    Filter(Wanted);
}

void SignalTree::RemoveFile(const QString& path) {
    std::erase_if(Files, [&](const ShownFile& file) { return file.Path == path; });
    delete FileItem(path);
}

void SignalTree::Replace(const PlottedSignal& old, SignalPointer signal) {
    for (ShownFile& file : Files) {
        for (SignalPointer& shown : file.Signals) {
            if (shown.get() != &old) continue;
            shown = std::move(signal);
            return;
        }
    }
}

void SignalTree::ShowTicks(const PlotModel& model) {
    IsFilling = true;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        for (int k = 0; k < topLevelItem(i)->childCount(); ++k) {
            QTreeWidgetItem* const item = topLevelItem(i)->child(k);
            const SignalPointer signal = SignalOf(item);
            if (signal != nullptr)
                item->setCheckState(NameColumn, model.Has(*signal) ? Qt::Checked : Qt::Unchecked);
        }
    }
    IsFilling = false;
}

void SignalTree::Filter(const QString& text) {
    Wanted = text;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        for (int k = 0; k < topLevelItem(i)->childCount(); ++k) {
            QTreeWidgetItem* const item = topLevelItem(i)->child(k);
            item->setHidden(!item->text(NameColumn).contains(text, Qt::CaseInsensitive) &&
                            !item->text(UnitColumn).contains(text, Qt::CaseInsensitive));
        }
    }
}

QString SignalTree::CurrentPath() const {
    const QTreeWidgetItem* item = currentItem();
    if (item == nullptr) item = topLevelItem(0);
    if (item != nullptr && item->parent() != nullptr) item = item->parent();
    return item == nullptr ? QString() : item->data(NameColumn, PathRole).toString();
}

std::vector<SignalPointer> SignalTree::Selected() const {
    std::vector<SignalPointer> found;
    for (const QTreeWidgetItem* item : selectedItems()) {
        SignalPointer signal = SignalOf(item);
        if (signal != nullptr) found.push_back(std::move(signal));
    }
    return found;
}

// The signals that are dragged are those selected: the drop takes them from here.
QMimeData* SignalTree::mimeData(const QList<QTreeWidgetItem*>& items) const {
    auto* const dragged = new QMimeData;
    dragged->setData(PlotArea::SignalMimeType, QByteArray::number(items.size()));
    return dragged;
}
}  // namespace kelvarin::view
