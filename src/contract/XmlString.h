// A small XML text that is written, or read, element by element.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct XmlElement;

namespace DM {

// The bytes of the longest text that is read.
constexpr std::size_t LargestXmlText = std::size_t{1} << 20;

// A text for writing takes elements in order. A write operation answers false, and writes nothing, where it
// can't stand: an attribute behind content, an element without name, a closing tag without an open element.
// Names are narrow ASCII text. Characters that XML can't hold are dropped.
//
// A text for reading is read whole at once; FindElement then moves among the children of its element, in any
// order, and the read operations take the one found last. Of several of a name the first counts.
class XmlString {
  public:
    // The flag says that the text starts empty, for writing.
    explicit XmlString(bool forWriting);

    // --- Writing (XmlString.cpp) ---

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

    // --- Reading (XmlStringReading.cpp) ---

    // A text in UTF-8 for reading. One that is not well-formed is an error and holds no element.
    XmlString(std::string_view text, bool forReading);

    // Looks for an element; a required one that is absent is an error.
    bool FindElement(std::string_view name, bool reserved, bool isRequired);

    // Makes `sub` read the children of the element just found. Errors of `sub` count here too.
    bool GetXmlSubString(XmlString& sub, bool forReading) const;

    // An attribute of the element just found; empty if it is absent, which is an error if it is required.
    bool ReadStringAttribute(std::string_view name, std::u16string& value, bool isRequired);

    // The content of the element just found. A number may have blanks around it; any other text is an error
    // and leaves `value` alone.
    bool ReadStringContent(std::u16string& value);
    bool ReadIntegerContent(std::int32_t& value);
    bool ReadRealContent(double& value);

    int GetErrorCount() const;

    // Byte position and reason of the first error; GetErrorCount must not be 0.
    std::size_t GetErrorOffset() const;
    const std::string& GetErrorReason() const;

  private:
    // Ends an opening tag that still takes attributes.
    void FinishOpeningTag();

    // What was read, shared by a text and its sub-texts.
    struct Source;

    bool AddError(std::size_t offset, std::string reason);

    std::string Text;
    std::vector<std::string> OpenElements;
    bool TakesAttributes = false;
    std::shared_ptr<Source> Read;
    const XmlElement* Scope = nullptr;  // whose children FindElement looks at; in Read
    const XmlElement* Found = nullptr;  // in Read
};

}  // namespace DM
