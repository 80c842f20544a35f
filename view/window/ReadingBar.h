// What is being read: progress, rate and time left, and a button that ends it.
#pragma once

#include <QElapsedTimer>
#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <functional>

#include "view/model/FileImport.h"

namespace kelvarin::view {
class ReadingBar : public QFrame {
  public:
    explicit ReadingBar(QWidget* parent = nullptr);

    std::function<void()> OnCancel;

    // Shows the bar.
    void Begin(const QString& name, std::uint64_t bytes);
    void Show(const ImportProgress& progress);

  private:
    QLabel* const Name;
    QProgressBar* const Done;
    QLabel* const Rate;
    QPushButton* const Cancel;
    QElapsedTimer Clock;
    std::uint64_t Bytes = 0;
};

// What was assumed of a file by itself, with a way to change it and one to keep it.
class AssumptionBar : public QFrame {
  public:
    explicit AssumptionBar(QWidget* parent = nullptr);

    std::function<void()> OnChange, OnKeep;

    // Hides the bar if nothing was assumed.
    void Show(const ImportedFile* file);

  private:
    QLabel* const Text;
    QPushButton* const Change;
    QPushButton* const Keep;
};
}  // namespace kelvarin::view
