#include "host/SettingText.h"

#include <concepts>
#include <cstring>

#include "contract/SupportFunctions.h"
#include "contract/TimeStamp.h"
#include "host/Words.h"
#include "host/language/Phrase.h"
#include "platform/framework/Numbers.h"
#include "platform/framework/ProfileText.h"
#include "platform/framework/Text.h"
#include "settings/SettingsTable.h"

namespace kelvarin {
namespace {
template <class Value>
ProfileBlock BlockOf(const Value& value) {
    ProfileBlock block(sizeof value);
    std::memcpy(block.data(), &value, sizeof value);
    return block;
}

// Reads the value of one row of the table. Returns an empty text, or what is allowed.
struct ValueReader {
    const std::string& Text;
    ProfileOverlay::Value& Value;

    std::string operator()(const IntSetting&) const {
        std::int32_t number = 0;
        if (!ParseWhole(Text, number)) return Phrase("a 32-bit whole number");
        Value = number;
        return {};
    }
    std::string operator()(const TextSetting&) const {
        Value = Utf8ToUtf16(Text);
        return {};
    }
    std::string operator()(const MomentSetting&) const {
        std::int64_t seconds = 0;
        if (ReadBlock()) return {};
        if (!ParseWhole(Text, seconds))
            return Phrase("seconds since 1970, or hex: and the bytes of the block");
        Value = BlockOf(seconds);
        return {};
    }
    std::string operator()(const RealSetting&) const {
        if (ReadBlock()) return {};
        const std::u16string wide = Utf8ToUtf16(Text);
        const char16_t* end = nullptr;
        const double number = ParseDouble(wide.c_str(), u'.', &end);
        const bool isWhole = end != wide.c_str() && end == wide.c_str() + wide.size();
        if (!isWhole) return Phrase("a decimal number, inf, nan, or hex: and the bytes of the block");
        Value = BlockOf(number);
        return {};
    }
    bool ReadBlock() const {
        const auto block = BlockFromProfileText(Text);
        if (block) Value = *block;
        return block.has_value();
    }
};

std::string KnownKeys() {
    std::string keys;
    for (const Setting& setting : SettingsTable)
        keys += (keys.empty() ? "" : ", ") + Utf16ToUtf8(setting.Key);
    return keys;
}

template <std::integral Whole>
std::string ValueText(Whole number) {
    return std::to_string(number);
}

std::string ValueText(double number) {
    return ShortestText(number);
}

std::string ValueText(const std::u16string& text) {
    return Utf16ToUtf8(text);
}
}  // namespace

std::string ParseSetting(const std::string& key, const std::string& value, ParsedSetting& parsed) {
    parsed.Key = Utf8ToUtf16(key);
    for (const Setting& setting : SettingsTable) {
        if (parsed.Key != setting.Key) continue;
        const std::string allowed = std::visit(ValueReader{value, parsed.Value}, setting.Kind);
        if (allowed.empty()) return {};
        return Phrase("'{}' is no value of {}; allowed is {}", value, key, allowed);
    }
    return Phrase("there is no setting '{}'; allowed are {}", key, KnownKeys());
}

std::string ParseSetting(const std::string& text, ParsedSetting& setting) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) return Phrase("'{}' is not of the form KEY=VALUE", text);
    return ParseSetting(text.substr(0, equals), text.substr(equals + 1), setting);
}

std::string AdjustTimeFor(std::int64_t amount) {
    const auto seconds = static_cast<int>(amount / 1'000'000'000);
    const CTimeStamp moment(2000, 1, 1, seconds / 3600, seconds / 60 % 60, seconds % 60, 0);
    return std::to_string(moment.GetCTime().Seconds);
}

SettingList SettingsAsText(const CCsvImportSettings& settings) {
    SettingList list;
    for (const Setting& setting : SettingsTable) {
        const auto valueOf = [&](const auto& kind) { return ValueText(settings.*kind.Field); };
        list.emplace_back(Utf16ToUtf8(setting.Key), std::visit(valueOf, setting.Kind));
    }
    return list;
}

SettingsLayer::SettingsLayer()
    : Before(GetProcessProfile()), Layer(std::make_shared<ProfileOverlay>(Before)) {
    SetProcessProfile(Layer);
}

std::string SettingsLayer::Set(const std::string& key, const std::string& value) {
    ParsedSetting setting;
    std::string complaint = ParseSetting(key, value, setting);
    if (complaint.empty()) Set(setting);
    return complaint;
}

void UseUserProfile() {
    SetProcessProfile(OpenUserProfile(u"Brenholt", GetCommonProfileName()));
}
}  // namespace kelvarin
