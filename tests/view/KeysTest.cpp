// Keys and clicks in the dialog's window as people expect them to act: what is focused, checked, shown and
// closed.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QTest>
#include <QTreeView>
#include <map>
#include <sstream>

#include "kit/TestProfile.h"
#include "kit/Workdir.h"
#include "languages/English.h"
#include "platform/framework/Path.h"
#include "platform/framework/PropertySheet.h"
#include "platform/framework/Text.h"
#include "plugin/CsvImportFilter.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"
#include "view/WindowUser.h"

namespace {

// A line is a key with its modifiers, a step of a script, or a question: "? focus 1022".
struct KeyCase {
    const char* What;
    const char* Script;
    SettingList Settings = {};
};

constexpr const char* Table = "t;v;x\n10:00:00;1;a\n10:00:01;2;b\n";

void PressNamed(const std::string& name) {
    static const std::map<std::string, Qt::Key> keys = {
        {"Return", Qt::Key_Return}, {"Escape", Qt::Key_Escape}, {"Tab", Qt::Key_Tab},
        {"Space", Qt::Key_Space},   {"Down", Qt::Key_Down},     {"Up", Qt::Key_Up},
        {"Left", Qt::Key_Left},     {"Right", Qt::Key_Right},   {"PageDown", Qt::Key_PageDown},
        {"PageUp", Qt::Key_PageUp}, {"Home", Qt::Key_Home},     {"End", Qt::Key_End},
        {"F2", Qt::Key_F2},         {"F4", Qt::Key_F4}};
    Qt::KeyboardModifiers modifiers;
    std::string key = name;
    for (const auto& [prefix, modifier] : {std::pair{"ctrl+", Qt::ControlModifier},
                                           {"shift+", Qt::ShiftModifier},
                                           {"alt+", Qt::AltModifier}}) {
        if (key.rfind(prefix, 0) != 0) continue;
        key = key.substr(std::string(prefix).size());
        modifiers |= modifier;
    }
    const auto found = keys.find(key);
    const auto code = found != keys.end() ? found->second : static_cast<Qt::Key>(std::toupper(key[0]));
    PressKey(code == Qt::Key_Tab && modifiers.testFlag(Qt::ShiftModifier) ? Qt::Key_Backtab : code,
             modifiers);
}

// What a user sees of a control, in a word.
std::string Seen(const std::string& what, int id, const CDialog& dialog) {
    if (what == "ended") return dialog.IsEnded() ? "yes" : "no";
    if (FrontWindow() == nullptr) return "no window";
    const QWidget* const focused = FrontWindow()->focusWidget();
    if (what == "focus") return std::to_string(FocusedId());
    if (what == "tabs") return dynamic_cast<const QTabBar*>(focused) != nullptr ? "focused" : "not focused";
    if (what == "page") return std::to_string(FrontWindow()->findChild<QTabBar*>()->currentIndex());
    if (what == "editor")
        return focused != nullptr && focused->objectName() == "cell-edit" ? "open" : "closed";
    if (what == "list") {
        const auto* const list = dynamic_cast<QListWidget*>(QApplication::activePopupWidget());
        return list == nullptr ? "closed" : std::to_string(list->currentRow());
    }
    if (what == "popup") return QApplication::activePopupWidget() == nullptr ? "closed" : "open";
    QWidget* const widget = WidgetOf(id);
    if (widget == nullptr) return "absent";
    if (what == "checked") return dynamic_cast<QAbstractButton&>(*widget).isChecked() ? "yes" : "no";
    if (what == "enabled") return widget->isEnabled() ? "yes" : "no";
    if (auto* const combo = dynamic_cast<QComboBox*>(widget)) return combo->currentText().toStdString();
    if (auto* const edit = dynamic_cast<QLineEdit*>(widget)) return edit->text().toStdString();
    return widget->findChild<QLineEdit*>()->text().toStdString();
}

void Play(const KeyCase& c, const std::u16string& path) {
    SCOPED_TRACE(c.What);
    const TestProfile profile(Joined({"DateSetting=2", "TimestampFormat=hh:mm:ss"}, c.Settings));
    CCsvImportFilter filter(path.c_str());
    WindowUser* user = nullptr;
    std::vector<std::pair<std::string, std::string>> atEnd;
    WindowUser made([&](CDialog& dialog) {
        std::istringstream lines(c.Script);
        for (std::string line; std::getline(lines >> std::ws, line);) {
            std::istringstream words(line);
            std::string verb;
            std::string word;
            words >> verb;
            if (verb == "key") {
                while (words >> word) PressNamed(word);
            } else if (verb == "write") {
                words.get();
                std::getline(words, word);
                TypeText(QString::fromStdString(word));
            } else if (verb == "file") {
                words >> word;
                user->NextFile = Utf16ToUtf8(PathFolder(path)) + "/" + word;
            } else if (verb != "?") {
                EXPECT_TRUE(DoStep(line)) << line;
            } else if (words >> word; word == "message") {
                const std::vector<std::string> messages = std::exchange(user->Messages, {});
                words.get();
                std::getline(words, word);
                if (!words) word.clear();
                EXPECT_EQ(messages.empty() ? "" : messages[0], word) << line;
                EXPECT_LE(messages.size(), 1u) << line;
            } else {
                int id = 0;
                if (word == "checked" || word == "enabled" || word == "text") words >> id;
                std::string wanted;
                words.get();
                std::getline(words, wanted);
                EXPECT_EQ(Seen(word, id, dialog), wanted) << line;
            }
        }
    });
    user = &made;
    filter.ShowOptionDialog();
}

TEST(ViewKeys, ActAsPeopleExpect) {
    const KeyCase cases[] = {
        {"Escape cancels", "? focus 1022\nkey Space\n? checked 1022 no\nkey Escape\n? ended yes"},
        {"Enter in an edit is OK", "type 1015 1\nkey Return\n? ended yes"},
        {"Enter in a box with a list is OK", "type 1020 hh:mm:ss\nkey Return\n? message \n? ended yes"},
        {"Enter in a list that was dropped down is OK",
         "select 1063 1\nkey Return\n? ended yes",
         {"Adjust=1"}},
        {"Enter in a picker is OK",
         "time 1031 01:02:03\n? focus 1031\nkey Return\n? ended yes",
         {"Adjust=1"}},
        {"Enter on the tabs is OK", "page 1\n? tabs focused\nkey Return\n? ended yes"},
        {"Enter on Cancel cancels",
         "type 1015 1\nkey shift+Tab shift+Tab shift+Tab shift+Tab\n? focus "
         "2\nkey Return\n? ended yes"},
        {"Enter on a button presses it and not OK",
         "key ctrl+Tab\n? page 1\ncheck 0\nkey Tab\n? focus 1039\nkey Return\n? ended no"},
        {"Tab goes through the page, the tabs and the buttons, Shift+Tab back",
         "? focus 1022\nkey Tab\n? focus 1058\nkey Tab\n? focus 1061\nkey Tab\n? focus 1015\nkey Tab\n? "
         "focus "
         "1050\nkey Tab\n? focus 1020\nkey Tab\n? focus 1052\nkey Tab\n? focus 1026\nkey Tab\n? focus "
         "1009\nkey "
         "Tab Tab\n? focus 1066\nkey Tab\n? tabs focused\nkey Tab\n? focus 1\nkey Tab\n? focus 2\nkey Tab\n? "
         "focus 1022\nkey shift+Tab\n? focus 2\nkey shift+Tab shift+Tab shift+Tab\n? focus 1066\n? checked "
         "1058 "
         "yes\n? checked 1061 yes"},
        {"Alt and a letter reach what bears the letter",
         "? focus 1022\nkey alt+a\n? checked 1022 no\nkey alt+o\n? checked 1008 yes\n? focus 1008\nkey "
         "alt+l\n? "
         "focus 1025\nkey alt+n\n? checked 1007 no\nkey alt+s\n? focus 1005\nkey alt+f\n? focus 1020\nkey "
         "alt+t\n? focus 1061\nkey alt+d\n? focus 1058\n? checked 1058 yes\nkey ctrl+Tab\n? page 1\ncheck "
         "0\nkey "
         "alt+r\n? ended no"},
        {"arrows go round the radio buttons and check them",
         "key alt+a alt+s\n? focus 1005\nkey Right\n? checked 1004 yes\n? focus 1004\nkey Down Down Down\n? "
         "checked 1010 yes\n? enabled 1051 yes\nkey Right\n? focus 1005\n? checked 1005 yes\nkey Left\n? "
         "checked "
         "1010 yes\nkey Up\n? checked 1006 yes\n? enabled 1051 no"},
        {"arrows step the number of a spin within its bounds",
         "type 1015 1\nkey Down\n? text 1015 1\nkey Up Up\n? text 1015 3\nkey Down\n? text 1015 2"},
        {"space flips a check box",
         "key alt+a alt+a\n? focus 1022\nkey Space\n? checked 1022 no\nkey Space Space Space\n? checked 1022 "
         "yes"},
        {"Escape closes an open list, and only that",
         "click 1043\n? popup open\nkey Escape\n? popup closed\n? focus 1043\n? ended no\nkey Escape\n? "
         "ended yes",
         {"TimeSetting=1"}},
        {"Ctrl+Tab and Ctrl+PageDown turn the pages, and the focus goes along",
         "? focus 1022\nkey ctrl+Tab\n? page 1\n? focus 1021\nkey ctrl+Tab\n? page 0\n? focus 1022\nkey "
         "ctrl+shift+Tab\n? page 1\nkey ctrl+PageUp\n? page 0\nkey ctrl+PageDown\n? page 1\n? focus 1021"},
        {"after a click on a tab no key reaches the hidden page",
         "? focus 1022\npage 1\n? page 1\n? tabs focused\nkey Space\nwrite a\npage 0\n? page 0\n? checked "
         "1022 "
         "yes\ntype 1015 1\npage 1\nwrite 7\npage 0\n? text 1015 1\nkey Right\n? page 1\nkey Left\n? page 0"},
        {"OK shows the page that refuses",
         "key ctrl+Tab\ncheck 0\ncheck 1\n? focus 1021\nkey ctrl+Tab\n? page 0\nkey Return\n? message Select "
         "at "
         "least one signal for the import.\n? page 1\n? focus 1021\nkey Down Space Return\n? ended yes"},
        {"F2 edits the name of the focused row, Enter enters it, Escape gives up",
         "key ctrl+Tab Down F2\n? editor open\nwrite speed\nkey Return\n? editor closed\n? focus 1021\n? "
         "ended "
         "no\nkey Down F2\n? editor open\nwrite nothing\nkey Escape\n? editor closed\n? focus 1021\n? ended "
         "no"},
        {"Tab enters a name and stays in the list",
         "key ctrl+Tab Down F2\nwrite speed\nkey Tab\n? editor closed\n? focus 1021\nkey Tab\n? focus 1039"},
        {"a type is chosen by keyboard alone",
         "key ctrl+Tab Down F4\n? list 1\nkey End\n? list 7\nkey Return\n? list closed\n? focus 1021\nkey "
         "Down "
         "alt+Down\n? list 3\nkey Home Escape\n? list closed\n? ended no"},
        {"Enter refuses a number out of range once",
         "type 1015 1000\nkey Return\n? message Enter a whole number between 1 and 999.\n? focus 1015\nkey "
         "Escape\n? ended yes"},
        {"Tab refuses a number out of range once",
         "type 1015 0\nkey Tab\n? message Enter a whole number between 1 and 999.\n? focus 1015\n? message "},
        {"a click elsewhere refuses a number out of range once, and the next click counts",
         "type 1015 1000\nclick 1065\n? message Enter a whole number between 1 and 999.\n? focus 1015\n? "
         "checked "
         "1065 no\ntype 1015 1\nclick 1065\n? checked 1065 yes\n? message "},
        {"a click on a list that drops down is lost in the same way",
         "type 1015 1000\nclick 1020\n? message Enter a whole number between 1 and 999.\n? popup closed\n? "
         "focus "
         "1015"},
        {"a click on OK refuses a number out of range once, and the next click counts",
         "type 1015 1000\nok\n? message Enter a whole number between 1 and 999.\n? focus 1015\n? ended "
         "no\ntype "
         "1015 1\nok\n? ended yes"},
        {"a click on a tab refuses a number out of range once",
         "type 1015 1000\npage 1\n? message Enter a whole number between 1 and 999.\n? focus 1015\n? page 0"},
        {"Ctrl+Tab refuses a number out of range once",
         "type 1015 1000\nkey ctrl+Tab\n? message Enter a whole number between 1 and 999.\n? focus 1015\n? "
         "page 0"},
        {"a sidecar is loaded, or none",
         "file saved\nclick 1066\n? text 1051 |\n? checked 1010 yes\n? message ",
         {}},
        {"Escape in the question for a file changes nothing", "click 1066\n? checked 1022 yes\n? ended no"},
        {"a letter reaches nothing past a number out of range",
         "type 1015 1000\nkey alt+a\n? message Enter a whole number between 1 and 999.\n? focus 1015\n? "
         "checked "
         "1022 yes"},
    };
    const Workdir folder;
    const std::u16string path = folder.Write("data.csv", Table);
    folder.Write(
        "saved.info",
        "<CSV-INFO format-rev='2'><START-LINE>1</START-LINE><SEPARATOR>|</SEPARATOR>"
        "<DELIMITER-DECIMAL-POINT>.</DELIMITER-DECIMAL-POINT><DELIMITER-MIL>_</DELIMITER-MIL></CSV-INFO>");
    CsvImportModule().UseLanguage(&GetEnglishResources());
    for (const KeyCase& c : cases) Play(c, path);
    CsvImportModule().UseLanguage(nullptr);
}

}  // namespace
