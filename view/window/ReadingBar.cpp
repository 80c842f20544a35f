#include "view/window/ReadingBar.h"

#include <QHBoxLayout>

#include "host/Words.h"
#include "host/language/Phrase.h"
#include "view/dialog/QtText.h"

namespace kelvarin::view {
namespace {
QString Told(const std::string& text) {
    return QString::fromStdString(text);
}
}  // namespace

ReadingBar::ReadingBar(QWidget* parent)
    : QFrame(parent),
      Name(new QLabel),
      Done(new QProgressBar),
      Rate(new QLabel),
      Cancel(new QPushButton(Told(Phrase("Cancel")))) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(6, 2, 6, 2);
    row->addWidget(Name);
    row->addWidget(Done, 1);
    row->addWidget(Rate);
    row->addWidget(Cancel);
    QObject::connect(Cancel, &QPushButton::clicked, this, [this] {
        if (OnCancel) OnCancel();
    });
    hide();
}

void ReadingBar::Begin(const QString& name, std::uint64_t bytes) {
    constexpr int MostWidth = 300;
    Name->setText(fontMetrics().elidedText(ShownText(name.toStdString()), Qt::ElideMiddle, MostWidth));
    Name->setToolTip(name);
    Done->setValue(0);
    Rate->clear();
    Bytes = bytes;
    Clock.start();
    show();
}

void ReadingBar::Show(const ImportProgress& progress) {
    Done->setFormat(progress.IsCopying ? Told(Phrase("clean copy: {}", "%p %")) : QStringLiteral("%p %"));
    Done->setValue(static_cast<int>(progress.Percent));
    const double seconds = static_cast<double>(Clock.elapsed()) / 1e3;
    if (seconds < 0.2 || progress.Percent == 0) return;
    const double share = progress.Percent / 100.0;
    const double left = seconds / share * (1 - share);
    const double rate = static_cast<double>(Bytes) * share / seconds / 1e6;
    Rate->setText(
        Told(Phrase("{} MB/s, {} s left", static_cast<int>(rate + 0.5), static_cast<int>(left + 0.99))));
}

AssumptionBar::AssumptionBar(QWidget* parent)
    : QFrame(parent),
      Text(new QLabel),
      Change(new QPushButton(Told(Phrase("Change...")))),
      Keep(new QPushButton(Told(Phrase("Keep beside the file")))) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(6, 2, 6, 2);
    Text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    Text->setTextFormat(Qt::PlainText);
    Text->setWordWrap(true);
    row->addWidget(Text, 1);
    row->addWidget(Change);
    row->addWidget(Keep);
    QObject::connect(Change, &QPushButton::clicked, this, [this] {
        if (OnChange) OnChange();
    });
    QObject::connect(Keep, &QPushButton::clicked, this, [this] {
        if (OnKeep) OnKeep();
    });
    hide();
}

void AssumptionBar::Show(const ImportedFile* file) {
    const bool isAssumed =
        file != nullptr && file->Guess && !file->Guess->Assumed.empty() && file->Guess->Saved.empty();
    setVisible(isAssumed);
    if (!isAssumed) return;
    std::string all;
    std::string line;
    for (const Assumption& assumed : file->Guess->Assumed) {
        const std::string text = assumed.Text + " (" + CertaintyInWords(assumed.Sureness) + ")";
        line += (line.empty() ? "" : "; ") + text;
        all += (all.empty() ? "" : "\n") + text;
        for (const std::string& objection : assumed.Objections) all += "\n    " + objection;
    }
    Text->setText(ShownText(Phrase("Assumed: {}", line)));
    Text->setToolTip(Told(all));
    // A copy is read by no settings that could be kept.
    Keep->setEnabled(!file->Guess->IsCopied);
}
}  // namespace kelvarin::view
