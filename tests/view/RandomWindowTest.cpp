// Whatever a user does by mouse and keys, closing the window takes it back.
#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>
#include <iterator>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>

#include "cli/report/JsonReport.h"
#include "kit/TestProfile.h"
#include "kit/Workdir.h"
#include "platform/framework/Dialog.h"
#include "plugin/CsvImportFilter.h"
#include "view/WindowUser.h"

namespace {

class RandomHand {
  public:
    explicit RandomHand(unsigned seed) : Random(seed) {}

    // A key or a click into whichever window is in front.
    void Move() {
        constexpr Qt::Key Keys[] = {Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Space,    Qt::Key_Up,
                                    Qt::Key_Down, Qt::Key_Left,    Qt::Key_Right,    Qt::Key_F2,
                                    Qt::Key_F4,   Qt::Key_Return,  Qt::Key_PageDown, Qt::Key_Home,
                                    Qt::Key_End,  Qt::Key_Delete,  Qt::Key_9};
        QWidget& window = *FrontWindow()->window();
        const unsigned kind = Below(10);
        if (kind < 4) {
            const QPoint point(static_cast<int>(Below(static_cast<unsigned>(window.width()))),
                               static_cast<int>(Below(static_cast<unsigned>(window.height()) * 9 / 10)));
            ClickAt(window, point, kind == 0);
        } else if (kind < 6) {
            constexpr char16_t Letters[] = u"0123;x,h";
            TypeText(QString(QChar(Letters[Below(std::size(Letters) - 1)])));
        } else {
            const Qt::Key key = Keys[Below(std::size(Keys))];
            // Enter would end the dialog by OK.
            const bool ends = key == Qt::Key_Return && QApplication::activePopupWidget() == nullptr;
            if (!ends) PressKey(key, Below(8) == 0 ? Qt::ControlModifier : Qt::NoModifier);
        }
    }

  private:
    unsigned Below(std::size_t bound) { return static_cast<unsigned>(Random() % bound); }

    std::mt19937 Random;
};

// The settings and columns as JSON.
std::string SettingsOf(const CImportFilter& filter) {
    nlohmann::ordered_json document;
    kelvarin::cli::AddSettings(document, filter);
    return document.dump();
}

TEST(ViewRandom, StepsAreTakenBackByClosingTheWindow) {
    const Workdir folder;
    const std::u16string path =
        folder.Write("data.csv", "t;n;v\n10:00:00;1;2,5\n10:00:01;3;4 V\n;x;\"a;b\"\n");
    for (unsigned seed = 0; seed < 8; ++seed) {
        SCOPED_TRACE(seed);
        const TestProfile profile({"DateSetting=2", "TimestampFormat=hh:mm:ss"});
        CCsvImportFilter filter(path.c_str());
        ASSERT_TRUE(filter.AnalyzeFile());
        const std::string before = SettingsOf(filter);
        bool isOk = false;
        const WindowUser user([&](CDialog& dialog) {
            RandomHand hand(seed);
            for (int i = 0; i < 120 && !dialog.IsEnded(); ++i) hand.Move();
            while (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
            isOk = dialog.IsEnded();
        });
        const std::int64_t result = filter.ShowOptionDialog();
        if (isOk && result == 1) continue;
        EXPECT_EQ(result, 2);
        EXPECT_EQ(SettingsOf(filter), before);
        EXPECT_EQ(folder.Names(), "data.csv");
    }
}

}  // namespace
