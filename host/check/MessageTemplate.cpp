#include "host/check/MessageTemplate.h"

namespace kelvarin::check {

MessageTemplate::MessageTemplate(std::u16string_view text) {
    std::u16string piece;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t next = i + 1 < text.size() ? text[i + 1] : u'\0';
        if (text[i] == u'%' && (next == u's' || next == u'i')) {
            Pieces.push_back(std::move(piece));
            piece.clear();
            ++i;
        } else {
            piece += text[i];
        }
    }
    Pieces.push_back(std::move(piece));
}

std::vector<std::u16string> MessageTemplate::Read(std::u16string_view text) const {
    if (!text.starts_with(Pieces.front()) || !text.ends_with(Pieces.back())) return {};
    const std::size_t begin = Pieces.front().size();
    if (text.size() < begin + Pieces.back().size()) return {};
    std::size_t end = text.size() - Pieces.back().size();
    std::vector<std::u16string> values(Pieces.size() - 1);
    for (std::size_t i = values.size(); i-- > 1;) {
        const std::u16string& piece = Pieces[i];
        const std::size_t found =
            end < begin + piece.size() ? std::u16string_view::npos : text.rfind(piece, end - piece.size());
        if (found == std::u16string_view::npos || found < begin) return {};
        values[i] = text.substr(found + piece.size(), end - found - piece.size());
        end = found;
    }
    if (!values.empty()) values[0] = text.substr(begin, end - begin);
    return values;
}

}  // namespace kelvarin::check
