#include "view/model/TextSpans.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <optional>

#include "platform/framework/Text.h"

namespace kelvarin::view {
TextSpans::TextSpans(const store::StoredSignal& signal) {
    std::optional<std::u16string> last;  // none before the first sample and for one without a value
    std::u16string text;
    bool isCut = false;
    std::uint64_t row = 0;
    signal.VisitSamples(std::numeric_limits<std::uint64_t>::max(),
                        [&](std::int64_t, const void* data, std::uint32_t size) {
                            if (isCut) return;
                            const std::uint64_t at = row++;
                            text.resize(size / sizeof(char16_t));
                            if (size != 0) std::memcpy(text.data(), data, size);
                            const bool isSame = data == nullptr ? !last : last && *last == text;
                            End = row;
                            if (isSame && !Starts.empty()) return;
                            isCut = Starts.size() == MostKept;
                            if (isCut) {
                                End = at;
                                return;
                            }
                            Starts.push_back(at);
                            if (data == nullptr) {
                                last.reset();
                                Texts.push_back(nullptr);
                                return;
                            }
                            last = text;
                            Texts.push_back(&*Known.insert(Utf16ToUtf8(text)).first);
                        });
}

TextSpan TextSpans::At(std::size_t span) const {
    return {Starts[span], span + 1 < Starts.size() ? Starts[span + 1] : End, Texts[span]};
}

std::size_t TextSpans::SpanOf(std::uint64_t row) const {
    if (row >= End) return Count();
    return static_cast<std::size_t>(std::upper_bound(Starts.begin(), Starts.end(), row) - Starts.begin()) - 1;
}
}  // namespace kelvarin::view
