#include "platform/framework/FormatText.h"

#include "platform/framework/Text.h"

std::u16string FormatArgument::ToText() const {
    return IsNumber ? Utf8ToUtf16(std::to_string(Number)) : std::u16string(Text);
}

std::u16string FormatText(std::u16string_view format, std::initializer_list<FormatArgument> arguments) {
    std::u16string text;
    const FormatArgument* next = arguments.begin();
    for (std::size_t i = 0; i < format.size(); ++i) {
        const char16_t kind = format[i] == u'%' && i + 1 < format.size() ? format[i + 1] : u'\0';
        if (kind == u's' || kind == u'i' || kind == u'd' || kind == u'u') {
            if (next != arguments.end()) text += (next++)->ToText();
            ++i;
        } else {
            text += format[i];
            if (kind == u'%') ++i;
        }
    }
    return text;
}
