#include "cli/DialogScript.h"

#include <charconv>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <utility>

#include "cli/report/JsonReport.h"
#include "contract/ParamListCtrl.h"
#include "host/language/Phrase.h"
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
}  // namespace

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

std::optional<std::u16string> DialogScript::ChooseFile(const FileQuestion&) {
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
}  // namespace kelvarin::cli
