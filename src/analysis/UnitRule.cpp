#include "analysis/UnitRule.h"

#include "platform/framework/Text.h"

bool HasNumberCharacter(const char16_t* text) {
    for (; *text != u'\0'; ++text) {
        if (IsDigit(*text) || *text == u',' || *text == u'.') return true;
    }
    return false;
}

bool AcceptSuffix(const char16_t* suffix, std::u16string* unit) {
    if (unit == nullptr) return *suffix == u'\0';
    if (!unit->empty()) return *unit == suffix;
    if (*suffix == u'\0' || HasNumberCharacter(suffix)) return false;
    *unit = suffix;
    return true;
}
