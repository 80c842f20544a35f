#include "view/model/TextSpans.h"

#include <cstring>

#include "platform/framework/Text.h"

namespace kelvarin::view {
TextSpans::TextSpans(const store::StoredSignal& signal, std::uint64_t count, const TextSpans* before)
    : All(before == nullptr ? std::make_shared<Shared>() : before->All),
      Spans(before == nullptr ? 0 : before->Spans),
      End(before == nullptr ? 0 : before->End) {
    std::u16string text;
    signal.VisitFrom(All->Place, count,
                     [&](const void* data, std::uint32_t size) { Take(data, size, text); });
}

void TextSpans::Take(const void* data, std::uint32_t size, std::u16string& text) {
    if (All->IsCut) return;
    text.resize(size / sizeof(char16_t));
    if (size != 0) std::memcpy(text.data(), data, size);
    const bool isSame = data == nullptr ? !All->Last : All->Last && *All->Last == text;
    if (!isSame || Spans == 0) {
        All->IsCut = Spans == MostKept;
        if (All->IsCut) return;
        const std::string* const known =
            data == nullptr ? nullptr : &*All->Known.insert(Utf16ToUtf8(text)).first;
        All->Last = data == nullptr ? std::nullopt : std::optional(text);
        All->Starts.Entries.MakeRoom(Spans + 1);
        All->Starts.Entries[Spans++] = {End, known};
    }
    ++End;
}

TextSpan TextSpans::At(std::size_t span) const {
    const auto& starts = All->Starts.Entries;
    return {starts[span].Begin, span + 1 < Spans ? starts[span + 1].Begin : End, starts[span].Text};
}

std::size_t TextSpans::SpanOf(std::uint64_t row) const {
    return row >= End ? Spans : All->Starts.BlockOf(row, Spans);
}
}  // namespace kelvarin::view
