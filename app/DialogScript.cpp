#include "app/DialogScript.h"

#include <charconv>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "app/SettingsJson.h"
#include "app/language/Phrase.h"
#include "host/ParamListCtrl.h"
#include "platform/framework/Locale.h"
#include "platform/framework/Path.h"
#include "platform/framework/PropertySheet.h"
#include "platform/framework/Text.h"
#include "platform/framework/UserInput.h"

using Json = nlohmann::ordered_json;

namespace {

// Controls that steps name without a number.
constexpr int PreviewId = 1026;
constexpr int SignalListId = 1021;
constexpr int NameColumn = 0;
constexpr int TypeColumn = 1;

// A number at the start of `rest`, which then begins behind it and one blank.
bool TakeNumber(std::string& rest, int& number) {
    const char* const end = rest.data() + rest.size();
    const std::from_chars_result result = std::from_chars(rest.data(), end, number);
    if (result.ec != std::errc() || (result.ptr != end && *result.ptr != ' ')) return false;
    rest.erase(0, static_cast<std::size_t>(result.ptr - rest.data()) + (result.ptr != end ? 1 : 0));
    return true;
}

// Three numbers, each behind the other's mark, and nothing else.
bool ReadsThree(const std::string& text, char mark, int& a, int& b, int& c) {
    std::string rest = text;
    for (char& character : rest) {
        if (character == ' ') return false;
        if (character == mark) character = ' ';
    }
    return TakeNumber(rest, a) && TakeNumber(rest, b) && TakeNumber(rest, c) && rest.empty();
}

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

DialogScript::DialogScript(std::istream& script, std::ostream& out, const CImportFilter& filter)
    : Out(out), Filter(filter) {
    std::string line;
    for (int number = 1; std::getline(script, line); ++number) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line.front() == '#') continue;
        const std::size_t blank = line.find(' ');
        Steps.push_back(
            {number, line.substr(0, blank), blank == std::string::npos ? "" : line.substr(blank + 1)});
    }
}

void DialogScript::RunModal(CDialog& dialog) {
    for (const Step& step : Steps) {
        if (dialog.IsEnded()) return;
        const std::string complaint = Do(dialog, step);
        if (complaint.empty()) continue;
        Error = Phrase("line {} of the script: {}", step.Line, complaint);
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

std::string DialogScript::Do(CDialog& dialog, const Step& step) {
    std::string rest = step.Rest;
    int number = 0;
    if (step.Verb == "ok" || step.Verb == "cancel") {
        UserClick(dialog, step.Verb == "ok" ? 1 : 2);
    } else if (step.Verb == "dump") {
        Dump(dialog);
    } else if (step.Verb == "load") {
        NextFile = PathFromNative(step.Rest);
    } else if (step.Verb == "page") {
        if (!TakeNumber(rest, number) || number < 0 || number >= dialog.Sheet->GetPageCount()) {
            return Phrase("there is no page '{}'", step.Rest);
        }
        UserShowPage(dialog, number);  // a page may refuse to be left
    } else if (step.Verb == "click" && (step.Rest == "1" || step.Rest == "2")) {
        UserClick(dialog, step.Rest == "1" ? 1 : 2);
    } else {
        return DoOnPage(dialog, step);
    }
    return {};
}

std::string DialogScript::DoOnPage(CDialog& dialog, const Step& step) {
    CPropertyPage& page = ActivePage(dialog);
    const std::string unreachable =
        Phrase("'{}' finds no enabled control for it", step.Verb + " " + step.Rest);
    if (step.Verb == "leave") {
        return UserFocus(page, PreviewId) || UserFocus(page, SignalListId) ? std::string() : unreachable;
    }
    std::string rest = step.Rest;
    int id = 0;
    int a = 0, b = 0, c = 0;
    if (!TakeNumber(rest, id)) return Phrase("'{}' is no step, or lacks its number", step.Verb);
    const std::u16string text = Utf8ToUtf16(rest);
    bool done = false;
    if (step.Verb == "click") {
        done = UserClick(page, id);
    } else if (step.Verb == "type") {
        done = UserType(page, id, text);
    } else if (step.Verb == "select") {
        done = TakeNumber(rest, a) && UserSelect(page, id, a);
    } else if (step.Verb == "date") {
        done = ReadsThree(rest, '-', a, b, c) && UserSetDate(page, id, a, b, c);
    } else if (step.Verb == "time") {
        done = ReadsThree(rest, ':', a, b, c) && UserSetTime(page, id, a, b, c);
    } else if (step.Verb == "check") {
        done = UserClickRow(page, SignalListId, id, true);
    } else if (step.Verb == "name") {
        done = UserEditCell(page, SignalListId, id, NameColumn, text);
    } else if (step.Verb == "datatype") {
        done = UserEditCell(page, SignalListId, id, TypeColumn, text);
    } else if (step.Verb == "width") {
        done = TakeNumber(rest, a) && UserDragColumn(page, PreviewId, id, a);
    } else {
        return Phrase("'{}' is no step", step.Verb);
    }
    return done ? std::string() : unreachable;
}

void DialogScript::Dump(CDialog& dialog) {
    Json controls = Json::object();
    for (const ControlView& view : ViewControls(ActivePage(dialog)))
        controls[std::to_string(view.Id)] = ViewToJson(view);
    const CWnd focus = CWnd::GetFocus();
    const CWnd preview = dialog.Sheet->GetPage(0).GetDlgItem(PreviewId);
    const CWnd signals = dialog.Sheet->GetPage(1).GetDlgItem(SignalListId);
    const CCsvImportSettings& settings = SettingsOf(Filter);
    const Json dump = {
        {"page", dialog.Sheet->GetActiveIndex()},
        {"focus", focus.Exists() ? focus.GetDlgCtrlID() : 0},
        {"controls", controls},
        {"preview", PreviewToJson(CListCtrl(preview.Handle))},
        {"signals", signals.Exists() ? SignalsToJson(CListCtrl(signals.Handle)) : Json(nullptr)},
        {"messages", std::exchange(Messages, {})},
        {"settings", SettingsToJson(settings)},
        {"columns", ColumnsToJson(settings)}};
    Out << dump.dump() << "\n";
}
