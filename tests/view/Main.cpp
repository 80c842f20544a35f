// Stands in for the host, as the tests of the module do, with an application of Qt.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QStyleFactory>
#include <memory>

#include "contract/SupportFunctions.h"
#include "kit/MemoryProfile.h"
#include "plugin/CsvImportApp.h"

// Ends a test that waits in a window for a key which never comes.
class Alarm : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        constexpr unsigned Longest = 120;  // seconds
        alarm(Longest);
    }
};

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new Alarm);
    SetProcessProfile(std::make_shared<MemoryProfile>());
    SetPreferredLanguage("de");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    CCsvImportApp app;
    if (!app.InitInstance()) return 1;
    return RUN_ALL_TESTS();
}
