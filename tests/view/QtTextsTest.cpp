// Qt's own texts in the language of the program.
#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLabel>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPushButton>

#include "view/dialog/QtTexts.h"

namespace {

TEST(QtTexts, AreInTheLanguageOfTheProgram) {
    if (!QFile::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + "/qtbase_de.qm"))
        GTEST_SKIP() << "Qt's translations are not installed";
    const struct {
        const char* Language;
        const char* Cancel;
        const char* LookIn;
    } cases[] = {{"de", "Abbrechen", "Suchen in:"},
                 {"en", "Cancel", "Look in:"},
                 {"", "Cancel", "Look in:"},
                 {"tlh", "Cancel", "Look in:"}};
    for (const auto& test : cases) {
        QTranslator texts;
        kelvarin::view::UseQtTexts(texts, test.Language);
        QMessageBox box(QMessageBox::Question, {}, {}, QMessageBox::Cancel);
        EXPECT_EQ(box.button(QMessageBox::Cancel)->text().remove('&'), test.Cancel) << test.Language;
        const QFileDialog dialog;
        EXPECT_EQ(dialog.findChild<QLabel*>("lookInLabel")->text(), test.LookIn) << test.Language;
    }
}

}  // namespace
