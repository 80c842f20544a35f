#include "analysis/TextCells.h"

#include "analysis/NumberCells.h"
#include "platform/framework/Text.h"

bool ParseBool(char16_t* text, bool& value) {
    value = false;
    if (text == nullptr) return false;
    if (EqualsIgnoreCase(text, u"true")) {
        value = true;
        return true;
    }
    if (EqualsIgnoreCase(text, u"false")) return true;
    double number = 0.0;
    if (!ParseFloat(text, number, nullptr)) return false;
    value = number == 1.0;
    return number == 0.0 || number == 1.0;
}

bool ParseChar(const char16_t* text, char16_t& value) {
    if (text == nullptr) return false;
    if (text[0] != u'\0' && text[1] == u'\0') {
        value = text[0];
        return true;
    }
    std::int64_t code = 0;
    if (!ParseHex(text, code) || code < 0 || code > 0xFFFF) return false;
    value = static_cast<char16_t>(code);
    return true;
}
