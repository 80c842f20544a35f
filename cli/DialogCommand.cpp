#include <charconv>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/CommandLine.h"
#include "cli/Complaints.h"
#include "cli/report/JsonReport.h"
#include "contract/ParamListCtrl.h"
#include "host/HostSession.h"
#include "host/SourceFiles.h"
#include "host/language/Phrase.h"
#include "platform/framework/DialogDriver.h"
#include "platform/framework/Locale.h"
#include "platform/framework/Path.h"
#include "platform/framework/PropertySheet.h"
#include "platform/framework/Text.h"
#include "platform/framework/UserInput.h"

namespace kelvarin::cli {

using Json = nlohmann::ordered_json;

namespace {

// Controls that steps name without a number.
constexpr int PreviewId = 1026;
constexpr int SignalListId = 1021;
constexpr int NameColumn = 0;
constexpr int TypeColumn = 1;

// A number at the start of `rest`, which is cut off with one blank after it.
bool TakeNumber(std::string& rest, int& number) {
    const char* const end = rest.data() + rest.size();
    const std::from_chars_result result = std::from_chars(rest.data(), end, number);
    if (result.ec != std::errc() || (result.ptr != end && *result.ptr != ' ')) return false;
    rest.erase(0, static_cast<std::size_t>(result.ptr - rest.data()) + (result.ptr != end ? 1 : 0));
    return true;
}

// Three numbers with a mark between each two, and nothing else.
bool ReadsThree(const std::string& text, char mark, int& a, int& b, int& c) {
    std::string rest = text;
    for (char& character : rest) {
        if (character == ' ') return false;
        if (character == mark) character = ' ';
    }
    return TakeNumber(rest, a) && TakeNumber(rest, b) && TakeNumber(rest, c) && rest.empty();
}

// A step on a control, a row or a column of the page that is shown: its verb, its number, and what comes
// after. False if that can't be done.
struct PageStep {
    const char* Verb;
    bool (*Do)(CPropertyPage& page, int number, std::string rest);
};

constexpr PageStep PageSteps[] = {
    {"click", [](CPropertyPage& page, int id, std::string) { return UserClick(page, id); }},
    {"type",
     [](CPropertyPage& page, int id, std::string text) { return UserType(page, id, Utf8ToUtf16(text)); }},
    {"select",
     [](CPropertyPage& page, int id, std::string rest) {
         int index = 0;
         return TakeNumber(rest, index) && UserSelect(page, id, index);
     }},
    {"date",
     [](CPropertyPage& page, int id, std::string rest) {
         int year = 0, month = 0, day = 0;
         return ReadsThree(rest, '-', year, month, day) && UserSetDate(page, id, year, month, day);
     }},
    {"time",
     [](CPropertyPage& page, int id, std::string rest) {
         int hour = 0, minute = 0, second = 0;
         return ReadsThree(rest, ':', hour, minute, second) && UserSetTime(page, id, hour, minute, second);
     }},
    {"check",
     [](CPropertyPage& page, int row, std::string) { return UserClickRow(page, SignalListId, row, true); }},
    {"name",
     [](CPropertyPage& page, int row, std::string text) {
         return UserEditCell(page, SignalListId, row, NameColumn, Utf8ToUtf16(text));
     }},
    {"datatype",
     [](CPropertyPage& page, int row, std::string text) {
         return UserEditCell(page, SignalListId, row, TypeColumn, Utf8ToUtf16(text));
     }},
    {"width",
     [](CPropertyPage& page, int column, std::string rest) {
         int pixels = 0;
         return TakeNumber(rest, pixels) && UserDragColumn(page, PreviewId, column, pixels);
     }},
};

CPropertyPage& ActivePage(CDialog& dialog) {
    return dialog.Sheet->GetPage(dialog.Sheet->GetActiveIndex());
}

Json ViewToJson(const ControlView& view) {
    Json json = Json::object();
    switch (view.Kind) {
        case ControlKind::CheckBox:
        case ControlKind::RadioButton:
            json["checked"] = view.Checked;
            break;
        case ControlKind::Edit:
            json["text"] = Utf16ToUtf8(view.Text);
            break;
        case ControlKind::ComboBox:
        case ControlKind::DropDownList:
            json["text"] = Utf16ToUtf8(view.Text);
            json["items"] = Json::array();
            for (const std::u16string& item : view.Items) json["items"].push_back(Utf16ToUtf8(item));
            json["selected"] = view.Selected;
            break;
        case ControlKind::DatePicker:
        case ControlKind::TimePicker: {
            LocalTime t{};
            ToLocalTime(view.Seconds, t);
            char text[64];
            std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", t.Year, t.Month, t.Day, t.Hour,
                          t.Minute, t.Second);
            json["value"] = text;
            break;
        }
        default:
            break;
    }
    json["enabled"] = view.Enabled;
    return json;
}

Json PreviewToJson(const CListCtrl& list) {
    Json columns = Json::array();
    constexpr std::uint32_t DefaultColor = 0xFF000000;
    for (int i = 0; i < list.GetColumnCount(); ++i) {
        CRect header;
        list.GetHeaderRect(i, &header);
        columns.push_back({{"heading", Utf16ToUtf8(list.GetColumnHeading(i))},
                           {"width", header.Width()},
                           {"tinted", list.GetColumnBackground(i) != DefaultColor}});
    }
    Json rows = Json::array();
    for (int row = 0; row < list.GetItemCount(); ++row) {
        Json cells = Json::array();
        for (int i = 0; i < list.GetColumnCount(); ++i)
            cells.push_back(Utf16ToUtf8(list.GetItemText(row, i)));
        rows.push_back(cells);
    }
    return {{"columns", columns}, {"rows", rows}};
}

Json SignalsToJson(const CListCtrl& list) {
    constexpr unsigned CheckedImage = 0x2000;
    Json signals = Json::array();
    for (int row = 0; row < list.GetItemCount(); ++row) {
        signals.push_back({{"column", list.GetItemData(row)},
                           {"checked", list.GetItemState(row, CListCtrl::CheckBoxMask) == CheckedImage},
                           {"name", Utf16ToUtf8(list.GetItemText(row, NameColumn))},
                           {"type", Utf16ToUtf8(list.GetItemText(row, TypeColumn))}});
    }
    return signals;
}

// Does the steps of a script, one a line; `dump` writes to `out`. A step that can't be done ends the script
// with an error.
class DialogScript : public DialogDriver {
  public:
    DialogScript(std::istream& script, std::ostream& out, const CImportFilter& filter)
        : Script(script), Out(out), Filter(filter) {}

    void RunModal(CDialog& dialog) override;
    int ShowMessage(const std::u16string& text, unsigned type) override;
    std::optional<std::u16string> ChooseFile(const std::u16string& title,
                                             const std::u16string& filter) override;

    // Empty, or the line and what is wrong with it.
    const std::string& GetError() const { return Error; }

  private:
    // A step is a verb and the rest of its line. Empty, or why it can't be done.
    std::string Do(CDialog& dialog, const std::string& verb, std::string rest);
    std::string DoOnPage(CPropertyPage& page, const std::string& verb, std::string rest);
    void Dump(CDialog& dialog);

    std::istream& Script;
    std::ostream& Out;
    const CImportFilter& Filter;
    std::string Error;
    std::optional<std::u16string> NextFile;
    std::vector<std::string> Messages;  // shown since the last dump
};

void DialogScript::RunModal(CDialog& dialog) {
    std::string line;
    for (int number = 1; !dialog.IsEnded() && std::getline(Script, line); ++number) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line.front() == '#') continue;
        const std::size_t blank = line.find(' ');
        const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
        const std::string complaint = Do(dialog, line.substr(0, blank), rest);
        if (complaint.empty()) continue;
        Error = Phrase("line {} of the script: {}", number, complaint);
        return;
    }
}

int DialogScript::ShowMessage(const std::u16string& text, unsigned) {
    Messages.push_back(Utf16ToUtf8(text));
    return 1;
}

std::optional<std::u16string> DialogScript::ChooseFile(const std::u16string&, const std::u16string&) {
    return std::exchange(NextFile, std::nullopt);
}

std::string DialogScript::Do(CDialog& dialog, const std::string& verb, std::string rest) {
    constexpr int OkId = 1;
    constexpr int CancelId = 2;
    const std::string step = verb + " " + rest;
    int number = 0;
    if (verb == "ok" || step == "click 1") {
        UserClick(dialog, OkId);
    } else if (verb == "cancel" || step == "click 2") {
        UserClick(dialog, CancelId);
    } else if (verb == "dump") {
        Dump(dialog);
    } else if (verb == "load") {
        NextFile = PathFromNative(rest);
    } else if (verb == "page") {
        if (!TakeNumber(rest, number) || number < 0 || number >= dialog.Sheet->GetPageCount())
            return Phrase("there is no page '{}'", step.substr(verb.size() + 1));
        UserShowPage(dialog, number);  // a page may refuse to be left
    } else {
        return DoOnPage(ActivePage(dialog), verb, rest);
    }
    return {};
}

std::string DialogScript::DoOnPage(CPropertyPage& page, const std::string& verb, std::string rest) {
    const std::string unreachable = Phrase("'{}' finds no enabled control for it", verb + " " + rest);
    if (verb == "leave")
        return UserFocus(page, PreviewId) || UserFocus(page, SignalListId) ? std::string() : unreachable;
    int number = 0;
    if (!TakeNumber(rest, number)) return Phrase("'{}' is no step, or lacks its number", verb);
    for (const PageStep& step : PageSteps) {
        if (verb == step.Verb) return step.Do(page, number, rest) ? std::string() : unreachable;
    }
    return Phrase("'{}' is no step", verb);
}

void DialogScript::Dump(CDialog& dialog) {
    Json controls = Json::object();
    for (const ControlView& view : ViewControls(ActivePage(dialog)))
        controls[std::to_string(view.Id)] = ViewToJson(view);
    const CWnd focus = CWnd::GetFocus();
    const CWnd preview = dialog.Sheet->GetPage(0).GetDlgItem(PreviewId);
    const CWnd signals = dialog.Sheet->GetPage(1).GetDlgItem(SignalListId);
    Json dump = {{"page", dialog.Sheet->GetActiveIndex()},
                 {"focus", focus.Exists() ? focus.GetDlgCtrlID() : 0},
                 {"controls", controls},
                 {"preview", PreviewToJson(CListCtrl(preview.Handle))},
                 {"signals", signals.Exists() ? SignalsToJson(CListCtrl(signals.Handle)) : Json(nullptr)},
                 {"messages", std::exchange(Messages, {})}};
    AddSettings(dump, Filter);
    WriteDocument(Out, dump);
}

// The dialog of one file, with a script in the user's place unless it is null.
int ShowDialog(const ModuleLoader& module, const std::string& file, std::istream* script) {
    HostSession session(module, PathFromNative(file), RunOptions());
    std::optional<DialogScript> driver;
    if (script != nullptr) SetDialogDriver(&driver.emplace(*script, std::cout, session.Filter()));
    const std::int64_t result = session.Filter().ShowOptionDialog();
    SetDialogDriver(nullptr);
    if (driver && !driver->GetError().empty()) {
        Complain(driver->GetError());
        return ExitWrongUsage;
    }
    Json document = {{"result", result}};
    AddSettings(document, session.Filter());
    WriteDocument(std::cout, document);
    return result != 0 ? int{ExitDone} : Fail(file, WhyUnreadable(PathFromNative(file)));
}

// `scriptPath` is empty, a file, or - for standard input.
int RunDialog(const ModuleLoader& module, const std::string& file, const std::string& scriptPath) {
    if (scriptPath == "-") return ShowDialog(module, file, &std::cin);
    if (!scriptPath.empty()) {
        std::ifstream script(PathForStream(PathFromNative(scriptPath)));
        if (script) return ShowDialog(module, file, &script);
        ComplainAbout(scriptPath, Phrase("the script can't be read"));
    } else if (HasDisplay()) {
        return ShowDialog(module, file, nullptr);
    } else {
        Complain(
            Phrase("there is no display for the dialog here; drive it with --script FILE, or set values "
                   "with --set"));
    }
    return ExitWrongUsage;
}

}  // namespace

void AddDialogCommand(CommandLine& line) {
    const auto script = std::make_shared<std::string>();
    CLI::App& command = line.Add("dialog", Phrase("The settings dialog of one file, driven by a script"),
                                 [script](const ModuleLoader& module, const CommonOptions& common) {
                                     return RunDialog(module, common.Files.front(), *script);
                                 });
    command.get_option("FILE")->expected(1);
    command.add_option("--script", *script, Phrase("Steps of the user, one a line; - for standard input"))
        ->type_name("FILE");
    AddExamples(command, {"printf 'click 1022\\nok\\n' | kelvarin-import dialog --script - data.csv"});
}

}  // namespace kelvarin::cli
