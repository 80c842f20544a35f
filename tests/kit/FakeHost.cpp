#include "kit/FakeHost.h"

#include <charconv>
#include <cstring>

#include "platform/framework/Text.h"

namespace {

std::string TypeName(std::uint32_t type) {
    switch (type) {
        case KelvarinBool:
            return "Bool";
        case KelvarinDouble:
            return "Double";
        case KelvarinInt64:
            return "Int64";
        case KelvarinChar16:
            return "Char16";
        case KelvarinString:
            return "String";
        default:
            return "type " + std::to_string(type);
    }
}

template <class Number>
Number NumberIn(const std::string& bytes) {
    Number number;
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

std::string HexText(const std::string& bytes) {
    std::string text = "0x";
    for (const char byte : bytes) {
        constexpr char Digits[] = "0123456789ABCDEF";
        text += Digits[static_cast<unsigned char>(byte) >> 4];
        text += Digits[byte & 0xF];
    }
    return text;
}

std::string DoubleText(double number) {
    char text[40];
    return std::string(text, std::to_chars(text, text + sizeof text, number).ptr);
}

std::string UnitsText(const std::string& bytes) {
    std::u16string text(bytes.size() / 2, u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * 2);
    return Utf16ToUtf8(text);
}

// A value as the type wants it; the bare bytes if their number is wrong.
std::string ValueText(std::uint32_t type, const std::string& bytes) {
    if (type == KelvarinString && bytes.size() % 2 == 0) return '"' + UnitsText(bytes) + '"';
    if (bytes.size() != SizeOfKelvarinType(type) || type == KelvarinBool) return HexText(bytes);
    if (type == KelvarinInt64) return std::to_string(NumberIn<std::int64_t>(bytes));
    if (type == KelvarinDouble) return DoubleText(NumberIn<double>(bytes));
    return '\'' + UnitsText(bytes) + '\'';
}

}  // namespace

FakeSignal::FakeSignal(std::u16string name, std::uint32_t type, std::uint32_t size, std::uint32_t dirBlockId)
    : Name(std::move(name)), Type(type), Size(size), Id{{}, dirBlockId} {}

void FakeSignal::SetUnit(const char16_t* unit) {
    Unit = unit;
    ++UnitsSet;
}

DM::EResult FakeSignal::AddSample(const void* data, std::uint32_t size, std::int64_t time) {
    if (RefusesSamples) return DM::ResultRefused;
    Sample sample{time, std::nullopt, size};
    if (data != nullptr) sample.Bytes.emplace(static_cast<const char*>(data), size);
    Samples.push_back(std::move(sample));
    return DM::ResultOk;
}

DM::EResult FakeSignal::WriteMetaData(std::uint32_t kind, const DM::XmlString& xml) {
    MetaData += std::to_string(kind) + ' ' + xml.GetString();
    return DM::ResultRefused;  // of no interest to a filter
}

std::string FakeSignal::Describe() const {
    const std::string size = Size == VariableSampleSize ? "variable" : std::to_string(Size);
    return Utf16ToUtf8(Name) + " \"" + Utf16ToUtf8(Symbol) + "\" " + TypeName(Type) + ' ' + size +
           (MetaData.empty() ? "" : ' ' + MetaData);
}

std::string FakeSignal::DescribeSamples() const {
    std::string text = Utf16ToUtf8(Symbol) + (Unit.empty() ? "" : " [" + Utf16ToUtf8(Unit) + ']') + ':';
    for (const Sample& sample : Samples) {
        text += ' ' + std::to_string(sample.Time) + '=';
        text += sample.Bytes ? ValueText(Type, *sample.Bytes) : "none(" + std::to_string(sample.Size) + ')';
    }
    return text;
}

CDevice* FakeHost::CreateDevice(std::u16string name, const char16_t* description, int reserved) {
    Calls += "create \"" + Utf16ToUtf8(name) + "\" \"" + Utf16ToUtf8(description) + "\" " +
             std::to_string(reserved) + '\n';
    DeviceContext = GetCurrentModule();
    return HasDevice ? this : nullptr;
}

void FakeHost::FinishDevice(CDevice* device) {
    Calls += device == static_cast<CDevice*>(this) ? "finish\n" : "finish another\n";
}

std::int64_t FakeHost::GetBaseTime() {
    BaseQueries += 'T';
    return BaseTime;
}

bool FakeHost::QueryFixedBaseB() {
    BaseQueries += 'B';
    return FixedBaseB;
}

bool FakeHost::QueryFixedBaseA() {
    BaseQueries += 'A';
    return FixedBaseA;
}

std::string FakeHost::DescribeSignals() const {
    std::string text;
    for (const auto& signal : Signals) text += signal->Describe() + '\n';
    return text;
}

std::string FakeHost::DescribeSamples() const {
    std::string text;
    for (const auto& signal : Signals) text += signal->DescribeSamples() + '\n';
    return text;
}

DM::EResult FakeHost::CreateSignal(DM::SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                                   std::uint32_t size) {
    const auto number = static_cast<std::uint32_t>(Signals.size() + 1);
    if (static_cast<int>(number) == RefusedSignal) return DM::ResultRefused;
    // Beyond 2 to the 31, where a signed number would show.
    Signals.push_back(std::make_unique<FakeSignal>(name, type, size, 0xF0000000 + number));
    signal = Signals.back().get();
    return DM::ResultOk;
}
