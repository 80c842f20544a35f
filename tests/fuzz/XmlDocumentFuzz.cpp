// Any bytes as an XML text.
#include <cstddef>
#include <cstdint>

#include "platform/support/XmlDocument.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    XmlError error;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (!ReadXmlDocument(text, error) && error.Offset > size) __builtin_trap();
    return 0;
}
