// The library that the program loads to show the module's dialog: kelvarin-dialog.so.
#include <QApplication>
#include <memory>

#include "contract/SupportFunctions.h"
#include "view/dialog/QtDialogDriver.h"
#include "view/dialog/QtTexts.h"

namespace kelvarin::view {
namespace {

constexpr const char* PlatformVariable = "QT_QPA_PLATFORM";

// While it lives, Qt says nothing: what it says of a display that it can't reach is of no use here.
class Silence {
  public:
    Silence() : Before(qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {})) {}
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
    ~Silence() { qInstallMessageHandler(Before); }

  private:
    const QtMessageHandler Before;
};

// Qt's application for as long as the program shows dialogs.
class Application {
  public:
    Application() {
        // Where no display can be reached Qt would end the process: the last of the platforms needs none.
        const bool isChosen = qEnvironmentVariableIsSet(PlatformVariable);
        if (!isChosen) qputenv(PlatformVariable, "wayland;xcb;offscreen");
        Qt = std::make_unique<QApplication>(Count, Arguments);
        if (!isChosen) qunsetenv(PlatformVariable);
        IsReached = isChosen || QGuiApplication::platformName() != "offscreen";
        QApplication::setDesktopFileName("kelvarin-import");
        UseQtTexts(Translator, LanguageInForce());
    }

    bool ReachesDisplay() const { return IsReached; }

  private:
    int Count = 1;
    char Name[16] = "kelvarin-import";
    char* Arguments[2] = {Name, nullptr};
    QTranslator Translator;
    std::unique_ptr<QApplication> Qt;
    bool IsReached = false;
};

// A driver with the application that it needs.
class ProgramDriver : private Application, public QtDialogDriver {
  public:
    using Application::ReachesDisplay;
};

bool MayHaveDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet(PlatformVariable);
}

}  // namespace
}  // namespace kelvarin::view

extern "C" __attribute__((visibility("default"))) DialogDriver* MakeKelvarinDialogFront() {
    using namespace kelvarin::view;
    if (!MayHaveDisplay()) return nullptr;
    const Silence silence;
    auto driver = std::make_unique<ProgramDriver>();
    return driver->ReachesDisplay() ? driver.release() : nullptr;
}
