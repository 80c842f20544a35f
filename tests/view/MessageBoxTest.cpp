// Messages as they are shown: buttons, icon, and what each key returns.
#include "view/dialog/MessageBox.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

namespace {

using kelvarin::view::ShowMessageBox;

TEST(ViewMessageBox, ShowsWhatTheTypeSays) {
    const struct {
        unsigned Type;
        Qt::Key Key;
        int Result;
        QMessageBox::Icon Icon;
        qsizetype Buttons;
    } cases[] = {
        {48, Qt::Key_Return, 1, QMessageBox::Warning, 1},
        {48, Qt::Key_Escape, 1, QMessageBox::Warning, 1},
        {16, Qt::Key_Space, 1, QMessageBox::Critical, 1},
        {0x20 + 1, Qt::Key_Return, 1, QMessageBox::Question, 2},
        {0x20 + 1, Qt::Key_Escape, 2, QMessageBox::Question, 2},
        {0x120 + 1, Qt::Key_Return, 2, QMessageBox::Question, 2},
        {0x40 + 3, Qt::Key_Escape, 2, QMessageBox::Information, 3},
        {0x40 + 3, Qt::Key_Return, 6, QMessageBox::Information, 3},
        {0x100 + 4, Qt::Key_Return, 7, QMessageBox::NoIcon, 2},
        {5, Qt::Key_Return, 4, QMessageBox::NoIcon, 2},
        {2, Qt::Key_Return, 3, QMessageBox::NoIcon, 3},
        {0xF, Qt::Key_Return, 1, QMessageBox::NoIcon, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.Type) + " and key " + std::to_string(c.Key));
        QTimer::singleShot(0, [&] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->icon(), c.Icon);
            EXPECT_EQ(box->buttons().size(), c.Buttons);
            EXPECT_EQ(box->text(), "<b>5 & 6</b>") << "no markup";
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            QTest::keyClick(box->windowHandle(), c.Key);
        });
        EXPECT_EQ(ShowMessageBox(nullptr, u"title", u"<b>5 & 6</b>", c.Type), c.Result);
    }
}

}  // namespace
