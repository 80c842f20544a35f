// Dialog templates in the layout that CreateDialogIndirectParamW reads (DLGTEMPLATEEX).
#include <cstring>

#include "platform/framework/win32/NativeWindow.h"

namespace {

class TemplateWriter {
  public:
    void Word(int value) { Words.push_back(static_cast<WORD>(value)); }
    void Long(DWORD value) {
        Words.push_back(LOWORD(value));
        Words.push_back(HIWORD(value));
    }
    void Text(const char16_t* text) {
        for (; *text != 0; ++text) Words.push_back(*text);
        Words.push_back(0);
    }
    void Align() {
        if (Words.size() % 2 != 0) Words.push_back(0);
    }
    void Place(const ControlPlace& place) {
        Word(place.X);
        Word(place.Y);
        Word(place.Width);
        Word(place.Height);
    }

    std::vector<WORD> Words;
};

struct ControlClass {
    const char16_t* Name;
    DWORD Style;
    DWORD ExStyle;
};

ControlClass ClassOf(const ControlTemplate& control) {
    switch (control.Kind) {
        case ControlKind::Label:
            return {u"Static", SS_LEFT, 0};
        case ControlKind::GroupBox:
            return {u"Button", BS_GROUPBOX, 0};
        case ControlKind::CheckBox:
            return {u"Button", BS_AUTOCHECKBOX | WS_TABSTOP, 0};
        case ControlKind::RadioButton:
            return {u"Button", BS_AUTORADIOBUTTON, 0};
        case ControlKind::PushButton:
            return {u"Button", BS_PUSHBUTTON | WS_TABSTOP, 0};
        case ControlKind::DefaultButton:
            return {u"Button", BS_DEFPUSHBUTTON | WS_TABSTOP, 0};
        case ControlKind::Edit:
            return {u"Edit", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE};
        case ControlKind::Spin:
            return {u"msctls_updown32", UDS_SETBUDDYINT | UDS_ARROWKEYS | UDS_NOTHOUSANDS, 0};
        case ControlKind::ComboBox:
            return {u"ComboBox", CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP, 0};
        case ControlKind::DropDownList:
            return {u"ComboBox", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, 0};
        case ControlKind::DatePicker:
            return {u"SysDateTimePick32", DTS_SHORTDATEFORMAT | WS_TABSTOP, 0};
        case ControlKind::TimePicker:
            return {u"SysDateTimePick32", DTS_TIMEFORMAT | WS_TABSTOP, 0};
        case ControlKind::ListView:
            return {u"SysListView32", LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_TABSTOP,
                    WS_EX_CLIENTEDGE};
    }
    return {u"Static", 0, 0};
}

DWORD StyleOf(const ControlTemplate& control, const ControlClass& c) {
    DWORD style = c.Style | WS_CHILD | WS_VISIBLE;
    const auto has = [&](unsigned flag) { return (control.Style & flag) != 0; };
    // A group of radio buttons ends at the next control with this style, so all others have it.
    const bool isRadio = control.Kind == ControlKind::RadioButton;
    if (!isRadio || has(ControlGroup)) style |= WS_GROUP;
    if (isRadio && has(ControlGroup)) style |= WS_TABSTOP;
    if (has(ControlDigits)) style |= ES_NUMBER;
    if (has(ControlReadOnly)) style |= ES_READONLY;
    if (has(ControlMultiLine)) style |= ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | WS_VSCROLL;
    if (has(ControlBuddy)) style |= UDS_AUTOBUDDY;
    return style;
}

void WriteControl(TemplateWriter& out, const ControlTemplate& control) {
    const ControlClass c = ClassOf(control);
    out.Align();
    out.Long(0);  // help
    out.Long(c.ExStyle);
    out.Long(StyleOf(control, c));
    out.Place(control.Place);
    out.Long(static_cast<DWORD>(control.Id));
    out.Text(c.Name);
    out.Text(control.Text);
    out.Word(0);  // data of creation
}

}  // namespace

std::vector<WORD> WriteTemplate(const DialogTemplate& dialog, bool isPage) {
    constexpr DWORD PageStyle = WS_CHILD | DS_CONTROL;
    constexpr DWORD FrameStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER;
    constexpr int PointSize = 8;
    TemplateWriter out;
    out.Word(1);       // version
    out.Word(0xFFFF);  // the extended layout
    out.Long(0);       // help
    out.Long(isPage ? WS_EX_CONTROLPARENT : 0);
    out.Long((isPage ? PageStyle : FrameStyle) | DS_SETFONT | DS_FIXEDSYS);
    out.Word(static_cast<int>(dialog.Count));
    out.Place({0, 0, dialog.Width, dialog.Height});
    out.Word(0);  // menu
    out.Word(0);  // class
    out.Text(isPage ? u"" : dialog.Title);
    out.Word(PointSize);
    out.Word(FW_NORMAL);
    out.Word(DEFAULT_CHARSET << 8);  // upright
    out.Text(u"MS Shell Dlg");
    for (std::size_t i = 0; i < dialog.Count; ++i) WriteControl(out, dialog.Controls[i]);
    return out.Words;
}
