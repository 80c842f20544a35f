#include "platform/support/Windows1252.h"

namespace {

// The characters of the bytes 0x80 to 0x9F; all others have their own value.
constexpr char16_t UpperControls[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                        0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

void DecodeWindows1252(std::string_view bytes, std::u16string& text) {
    text.resize(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        text[i] = byte >= 0x80 && byte <= 0x9F ? UpperControls[byte - 0x80] : char16_t{byte};
    }
}
