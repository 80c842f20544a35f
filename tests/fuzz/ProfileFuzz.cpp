// Any bytes as a profile file: what is set reads back, all else stays, and settings loaded from it keep their
// bounds.
#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz/kit/Check.h"
#include "platform/framework/ProfileText.h"
#include "settings/SettingsTable.h"

namespace {

constexpr const char* Section = "CsvImport";

void CheckText(const std::string& bytes, const std::string& key, const std::string& value) {
    ProfileText text(bytes);
    const auto other = text.Find(Section, "Separator"), foreign = text.Find("Other", key);
    text.Set(Section, key, value);
    const ProfileText again(text.ToBytes());
    Check(text.Find(Section, key) == value && again.Find(Section, key) == value, "what is set reads back");
    Check(again.Find(Section, "Separator") == other && again.Find("Other", key) == foreign, "all else stays");
    Check(again.ToBytes() == text.ToBytes(), "writing and reading end");
}

void CheckValues(const std::string& bytes) {
    const ProfileBlock block(bytes.begin(), bytes.end());
    Check(BlockFromProfileText(BlockToProfileText(block)) == block, "a block comes back");
    const std::u16string text = Utf8ToUtf16(bytes);
    const std::string quoted = QuoteProfileText(text);
    Check(UnquoteProfileText(quoted) == text, "a text comes back");
    Check(quoted.find_first_of("\r\n") == quoted.npos, "a text is one line");
    if (const auto read = UnquoteProfileText(bytes)) {
        Check(UnquoteProfileText(QuoteProfileText(*read)) == read, "a text that is read is a text");
    }
}

void CheckSettings() {
    const CCsvImportSettings settings;
    for (const Setting& setting : SettingsTable) {
        if (const auto* number = std::get_if<IntSetting>(&setting.Kind)) {
            const int value = settings.*number->Field;
            Check(value >= number->Lowest && value <= number->Highest, "numbers keep their bounds");
        }
    }
    Check(settings.IntervalValue == settings.IntervalValue, "the interval is a number");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzHome home;
    FuzzedDataProvider input(data, size);
    const std::string value = std::to_string(input.ConsumeIntegral<int>());
    const std::string key = input.ConsumeBool() ? "FirstLine" : "Extra";
    const std::string bytes = input.ConsumeRemainingBytesAsString();
    CheckText(bytes, key, value);
    CheckValues(bytes);
    SetProcessProfile(OpenProfileFile(home.Write(bytes)));
    CheckSettings();
    SetProcessProfile(nullptr);
    return 0;
}
