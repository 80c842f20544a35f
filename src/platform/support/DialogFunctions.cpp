#include "contract/DialogFunctions.h"

#include "platform/framework/DialogDriver.h"

namespace {

std::u16string TrimBlanks(const std::u16string& text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string::npos) return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

}  // namespace

void EnableDlgItem(CDialog& dialog, int id, bool enable) {
    CWnd control = dialog.GetDlgItem(id);
    if (control.Exists()) control.EnableWindow(enable);
}

void EnableDlgItems(CDialog& dialog, const int* ids, std::size_t count, bool enable) {
    for (std::size_t i = 0; i < count; ++i) EnableDlgItem(dialog, ids[i], enable);
}

std::uint32_t MixColors(std::uint32_t first, std::uint32_t second, int weight) {
    const auto parts = static_cast<std::uint32_t>(weight) + 1;
    std::uint32_t mixed = 0;
    for (const unsigned shift : {0u, 8u, 16u}) {
        const std::uint32_t a = first >> shift & 0xFF;
        const std::uint32_t b = second >> shift & 0xFF;
        mixed |= (a * (parts - 1) + b) / parts << shift;
    }
    return mixed;
}

bool OpenFileDlg(int, const std::u16string& title, const std::u16string& filter, std::u16string& path) {
    const std::optional<std::u16string> chosen = AskForFile(title, filter);
    path = chosen.value_or(std::u16string());
    return chosen.has_value();
}

std::u16string ExtractSubString(const std::u16string& text, unsigned index, char16_t separator, bool trim) {
    std::size_t begin = 0;
    for (; index > 0; --index) {
        const std::size_t end = text.find(separator, begin);
        if (end == std::u16string::npos) return {};
        begin = end + 1;
    }
    const std::u16string item = text.substr(begin, text.find(separator, begin) - begin);
    return trim ? TrimBlanks(item) : item;
}
