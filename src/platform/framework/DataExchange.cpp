#include "platform/framework/DataExchange.h"

#include <charconv>

#include "platform/framework/Controls.h"
#include "platform/framework/FormatText.h"
#include "platform/framework/FrameworkStrings.h"
#include "platform/framework/Locale.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"

namespace {

// The shortest text of a double, with the locale's decimal point.
std::u16string NumberText(double value) {
    constexpr std::size_t Capacity = 32;
    constexpr int Precision = 15;
    char digits[Capacity];
    const auto end = std::to_chars(digits, digits + Capacity, value, std::chars_format::general, Precision);
    std::u16string text = Utf8ToUtf16({digits, static_cast<std::size_t>(end.ptr - digits)});
    return ReplaceAll(text, u".", std::u16string(1, LocaleDecimalPoint()));
}

void FailRange(CDataExchange& exchange, int id, int lowest, int highest) {
    exchange.Fail(id, FormatText(LoadFrameworkString(IdWholeRange), lowest, highest));
}

// The control of an exchange that still runs; one that doesn't exist is not exchanged.
bool Begin(CDataExchange& exchange, int id, CWnd& control) {
    if (exchange.Failed) return false;
    control = exchange.Dialog.GetDlgItem(id);
    return control.Exists();
}

}  // namespace

void DDX_Control(CDataExchange& exchange, int id, CWnd& control) {
    if (!control.Exists()) control.Handle = exchange.Dialog.GetDlgItem(id).Handle;
}

void DDX_Check(CDataExchange& exchange, int id, int& value) {
    CWnd control;
    if (!Begin(exchange, id, control)) return;
    if (exchange.SaveAndValidate) {
        value = exchange.Dialog.IsDlgButtonChecked(id) ? 1 : 0;
    } else {
        exchange.Dialog.CheckDlgButton(id, value != 0);
    }
}

void DDX_Radio(CDataExchange& exchange, int firstId, int& value) {
    CWnd control;
    if (!Begin(exchange, firstId, control)) return;
    if (exchange.SaveAndValidate) {
        value = exchange.Dialog.GetCheckedRadio(firstId);
    } else {
        exchange.Dialog.CheckRadio(firstId, value);
    }
}

void DDX_Text(CDataExchange& exchange, int id, std::u16string& value) {
    CWnd control;
    if (!Begin(exchange, id, control)) return;
    if (exchange.SaveAndValidate) {
        value = control.GetWindowText();
    } else {
        AfxSetWindowText(control, value);
    }
}

void DDX_TextInRange(CDataExchange& exchange, int id, int& value, int lowest, int highest) {
    CWnd control;
    if (!Begin(exchange, id, control)) return;
    if (!exchange.SaveAndValidate) return AfxSetWindowText(control, FormatText(u"%i", value));
    const std::u16string text(TrimWhiteSpace(control.GetWindowText()));
    const char16_t* end = nullptr;
    const std::int64_t number = ParseInt64(text.c_str(), &end, 10);
    const bool isWhole = end != text.c_str() && *end == u'\0' && number == static_cast<int>(number);
    if (isWhole) value = static_cast<int>(number);
    if (!isWhole || value < lowest || value > highest) FailRange(exchange, id, lowest, highest);
}

void DDX_TextInRange(CDataExchange& exchange, int id, double& value, double lowest, double highest) {
    CWnd control;
    if (!Begin(exchange, id, control)) return;
    if (!exchange.SaveAndValidate) return AfxSetWindowText(control, NumberText(value));
    const std::u16string text =
        ReplaceAll(std::u16string(TrimWhiteSpace(control.GetWindowText())), u",", u".");
    const char16_t* end = nullptr;
    const double number = ParseDouble(text.c_str(), u'.', &end);
    const bool isNumber = end != text.c_str() && *end == u'\0';
    if (isNumber) value = number;
    if (isNumber && value >= lowest && value <= highest) return;
    exchange.Fail(id,
                  FormatText(LoadFrameworkString(IdNumberRange), NumberText(lowest), NumberText(highest)));
}

void DDX_CBIndex(CDataExchange& exchange, int id, int& value) {
    CWnd control;
    if (!Begin(exchange, id, control)) return;
    CComboBox combo(control.Handle);
    if (exchange.SaveAndValidate) {
        value = combo.GetCurSel();
    } else {
        combo.SetCurSel(value);
    }
}

void DDX_CBStringExact(CDataExchange& exchange, int id, std::u16string& value) {
    CWnd control;
    if (!Begin(exchange, id, control)) return;
    CComboBox combo(control.Handle);
    if (exchange.SaveAndValidate) {
        value = combo.GetWindowText();
        return;
    }
    const int found = value.empty() ? -1 : combo.FindStringExact(value);
    combo.SetCurSel(found);
    if (found < 0) AfxSetWindowText(combo, value);
}

void DDX_DateTimeCtrl(CDataExchange& exchange, int id, std::int64_t& value) {
    CWnd control;
    if (!Begin(exchange, id, control)) return;
    CDateTimeCtrl picker(control.Handle);
    if (exchange.SaveAndValidate) {
        value = picker.GetTime();
    } else {
        picker.SetTime(value);
    }
}

void DDV_MinMaxInt(CDataExchange& exchange, int id, int value, int lowest, int highest) {
    if (exchange.SaveAndValidate && (value < lowest || value > highest))
        FailRange(exchange, id, lowest, highest);
}

void DDV_MaxChars(CDataExchange& exchange, int id, const std::u16string& value, int most) {
    CWnd control;
    if (!Begin(exchange, id, control)) return;
    if (!exchange.SaveAndValidate) return CEdit(control.Handle).LimitText(most);
    if (value.size() > static_cast<std::size_t>(most))
        exchange.Fail(id, FormatText(LoadFrameworkString(IdMostCharacters), most));
}
