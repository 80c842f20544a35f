// A small XML text that is written element by element.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace DM {

// Writes elements in order. A write operation answers false, and writes nothing, where it can't stand: an
// attribute behind content, an element without name, a closing tag without an open element. Names are narrow
// ASCII text. Characters that XML can't hold are dropped.
class XmlString {
  public:
    // The flag says that the text starts empty, for writing.
    explicit XmlString(bool forWriting);

    // Opens an element; its attributes may follow.
    bool WriteOpeningTag(std::string_view name, bool hasElements);

    // Closes the innermost open element.
    bool WriteClosingTag(bool hasElements);

    bool WriteIntegerAttribute(std::string_view name, std::int64_t value);
    bool WriteStringAttribute(std::string_view name, std::u16string_view value);

    // A whole element with a number as its content.
    bool WriteIntegerElement(std::string_view name, std::int64_t value);

    // Content of the innermost open element.
    bool WriteIntegerContent(std::int64_t value, bool hasElements);
    bool WriteRealContent(double value, bool hasElements);
    bool WriteStringContent(std::u16string_view text, bool hasElements);
    bool WriteStringContent(std::string_view text, bool hasElements);

    // What has been written so far, in UTF-8.
    const std::string& GetString() const { return Text; }

  private:
    // Ends an opening tag that still takes attributes.
    void FinishOpeningTag();

    std::string Text;
    std::vector<std::string> OpenElements;
    bool TakesAttributes = false;
};

}  // namespace DM
