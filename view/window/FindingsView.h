// What was found in a file, and the text of the file at a place.
#pragma once

#include <QPlainTextEdit>
#include <QTreeWidget>
#include <functional>
#include <utility>
#include <vector>

#include "view/model/FileImport.h"
#include "view/model/FileText.h"

class QSyntaxHighlighter;

namespace kelvarin::view {
class FindingsView : public QTreeWidget {
  public:
    explicit FindingsView(QWidget* parent = nullptr);

    // The user wants to see a line.
    std::function<void(std::uint64_t line)> OnLine;

    // Findings of the check with their lines, then messages. Null for none.
    void Show(const ImportedFile* file);

    // Makes the entry of the nearest line at or above this one the current one, without calling OnLine.
    void SelectLine(std::uint64_t line);
};

// Lines of a file with the columns of its table tinted and one line marked.
class FileTextView : public QPlainTextEdit {
  public:
    explicit FileTextView(QWidget* parent = nullptr);

    // The user has clicked a line.
    std::function<void(std::uint64_t line)> OnLine;

    void Show(std::vector<FileLine> lines, std::uint64_t marked);

    // Marks a line and has it in view; false if it isn't among those that are shown.
    bool Mark(std::uint64_t line);

    // The number of the first line that is shown; 0 for none.
    std::uint64_t FirstLine() const { return Lines.empty() ? 0 : Lines.front().Number; }

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    std::vector<std::pair<int, int>> CellsOf(std::size_t line) const;

    std::vector<FileLine> Lines;
    int Digits = 1;  // of their numbers, in front of each
    QSyntaxHighlighter* Tints = nullptr;
};
}  // namespace kelvarin::view
