// Text between the module, which has UTF-16, and Qt, which has the same under another name.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/framework/VisibleText.h"

namespace kelvarin::view {

inline QString ToQt(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::u16string FromQt(const QString& text) {
    return text.toStdU16String();
}

// A text of the program in UTF-8.
inline QString InWindow(const std::string& text) {
    return QString::fromStdString(text);
}

// A text of a file in UTF-8, on one line and with what would be obeyed made visible.
inline QString ShownText(std::string_view text) {
    return QString::fromStdString(MakeVisible(text));
}

}  // namespace kelvarin::view
