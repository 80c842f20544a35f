// Open files and their signals as a tree with ticks.
#pragma once

#include <QTreeWidget>
#include <functional>
#include <memory>
#include <vector>

#include "view/model/FileImport.h"
#include "view/model/PlotModel.h"

namespace kelvarin::view {
class SignalTree : public QTreeWidget {
  public:
    explicit SignalTree(QWidget* parent = nullptr);

    // A tick was set or taken away by the user.
    std::function<void(SignalPointer signal, bool isOn)> OnTicked;

    // Shows a file, or shows it anew; `model` says which signals have a tick. The pointer stays while the
    // file is shown.
    void ShowFile(const std::shared_ptr<const ImportedFile>& file, const PlotModel& model);

    // The signals of a file so far, without ticks, while it is read.
    void ShowGrowing(const QString& path, const std::vector<GrowingSignal>& grown);

    // A signal of a file that is shown stands for another from now on, such as that read so far.
    void Replace(const PlottedSignal& old, SignalPointer signal);

    void RemoveFile(const QString& path);

    // Sets the ticks anew.
    void ShowTicks(const PlotModel& model);

    // Shows only signals whose name or unit has this text, whatever the case, also of files to come.
    void Filter(const QString& text);

    // The file of the current entry; empty for none.
    QString CurrentPath() const;

    // The signals that are selected, and those of drag and drop.
    std::vector<SignalPointer> Selected() const;

  protected:
    QMimeData* mimeData(const QList<QTreeWidgetItem*>& items) const override;

  private:
    QTreeWidgetItem* FileItem(const QString& path);
    SignalPointer SignalOf(const QTreeWidgetItem* item) const;

    struct ShownFile {
        QString Path;
        std::vector<SignalPointer> Signals;
    };
    std::vector<ShownFile> Files;
    QString Wanted;  // as Filter was told
    bool IsFilling = false;
};
}  // namespace kelvarin::view
