#include "contract/XmlString.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/Text.h"
#include "platform/support/XmlDocument.h"

namespace DM {

struct XmlString::Source {
    XmlElement Document;  // no element of the text: its only child is the root
    int ErrorCount = 0;
    XmlError FirstError;
};

XmlString::XmlString(std::string_view text, bool) : Read(std::make_shared<Source>()) {
    XmlError error;
    if (std::optional<XmlElement> root = ReadXmlDocument(text, error)) {
        Read->Document.Children.push_back(*std::move(root));
    } else {
        AddError(error.Offset, error.Reason);
    }
    Scope = &Read->Document;
}

bool XmlString::AddError(std::size_t offset, std::string reason) {
    if (Read->ErrorCount++ == 0) Read->FirstError = {offset, std::move(reason)};
    return false;
}

bool XmlString::FindElement(std::string_view name, bool, bool isRequired) {
    Found = Scope->FindChild(name);
    if (Found == nullptr && isRequired) {
        AddError(Scope->Offset, "the element " + std::string(name) + " is missing");
    }
    return Found != nullptr;
}

bool XmlString::GetXmlSubString(XmlString& sub, bool) const {
    if (Found == nullptr) return false;
    sub.Read = Read;
    sub.Scope = Found;
    sub.Found = nullptr;
    return true;
}

bool XmlString::ReadStringAttribute(std::string_view name, std::u16string& value, bool isRequired) {
    value.clear();
    const std::string* const attribute = Found == nullptr ? nullptr : Found->FindAttribute(name);
    if (attribute != nullptr) {
        value = Utf8ToUtf16(*attribute);
        return true;
    }
    if (!isRequired) return false;
    return AddError(Found == nullptr ? 0 : Found->Offset,
                    "the attribute " + std::string(name) + " is missing");
}

bool XmlString::ReadStringContent(std::u16string& value) {
    if (Found == nullptr) return false;
    value = Utf8ToUtf16(Found->Text);
    return true;
}

bool XmlString::ReadIntegerContent(std::int32_t& value) {
    if (Found == nullptr) return false;
    const std::u16string text(TrimWhiteSpace(Utf8ToUtf16(Found->Text)));
    const char16_t* end = nullptr;
    const std::int64_t number = ParseInt64(text.c_str(), &end, 10);
    const bool isWhole = !text.empty() && end == text.c_str() + text.size();
    if (!isWhole || number != static_cast<std::int32_t>(number)) {
        return AddError(Found->Offset, "the content of " + Found->Name + " is no whole number of 32 bits");
    }
    value = static_cast<std::int32_t>(number);
    return true;
}

bool XmlString::ReadRealContent(double& value) {
    if (Found == nullptr) return false;
    const std::u16string text(TrimWhiteSpace(Utf8ToUtf16(Found->Text)));
    const char16_t* end = nullptr;
    const double number = ParseDouble(text.c_str(), u'.', &end);
    if (text.empty() || end != text.c_str() + text.size()) {
        return AddError(Found->Offset, "the content of " + Found->Name + " is no number");
    }
    value = number;
    return true;
}

int XmlString::GetErrorCount() const {
    return Read->ErrorCount;
}

std::size_t XmlString::GetErrorOffset() const {
    return Read->FirstError.Offset;
}

const std::string& XmlString::GetErrorReason() const {
    return Read->FirstError.Reason;
}

}  // namespace DM
