// The English texts against the module's own: nothing is missing, and what programs read in them agrees.
#include "languages/English.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <set>

#include "platform/framework/DialogTemplate.h"
#include "platform/framework/FrameworkStrings.h"
#include "platform/framework/Text.h"
#include "resources/DialogTemplates.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"

namespace {

// The placeholders and separators of a text, in their order.
std::string Marks(std::u16string_view text) {
    std::string marks;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'|') marks += '|';
        if (text[i] == u'%') marks += std::string("%") + static_cast<char>(text[i + 1]);
    }
    return marks;
}

// The character behind the mark of a label, in lower case; 0 for none.
char16_t MnemonicOf(std::u16string_view text) {
    const std::size_t mark = text.find(u'&');
    return mark == std::u16string_view::npos ? u'\0' : static_cast<char16_t>(text[mark + 1] | 0x20);
}

}  // namespace

TEST(English, HasEveryTextWithItsPlaceholders) {
    // Lists of formats have as many items as the language needs; the views of a time are no language's.
    const std::set<unsigned> free = {IdTimeFormats,   IdElapsedTimeFormats, IdDateFormats,
                                     IdTimestampView, IdSpanView,           IdNeutralFormatLetters};
    const StringTable& english = GetEnglishResources().Strings;
    const StringTable framework = GetFrameworkStrings();
    int compared = 0;
    for (unsigned id = 0; id <= std::numeric_limits<std::uint16_t>::max(); ++id) {
        std::u16string own = CsvImportModule().LoadString(id);
        if (const char16_t* const text = framework.Find(id)) own = text;
        if (own.empty() || free.contains(id)) continue;
        ++compared;
        const char16_t* const text = english.Find(id);
        ASSERT_NE(text, nullptr) << "text " << id;
        EXPECT_EQ(Marks(own), Marks(text)) << "text " << id;
    }
    EXPECT_GT(compared, 20);
    const auto commas = [](std::u16string_view text) { return std::count(text.begin(), text.end(), u','); };
    EXPECT_EQ(commas(english.Find(IdDataTypeNames)), commas(CsvImportModule().LoadString(IdDataTypeNames)));
}

TEST(English, GivesEveryDialogTextAndMnemonicsThatDiffer) {
    const LanguageResources& english = GetEnglishResources();
    const std::set<std::u16string> alike = {u"", u"OK", u"Format", u"h|min|s|ms|µs|ns"};
    const DialogTable dialogs = GetDialogTemplates();
    for (std::size_t i = 0; i < dialogs.Count; ++i) {
        const DialogTemplate& dialog = dialogs.Entries[i];
        std::set<char16_t> mnemonics;
        for (std::size_t k = 0; k < dialog.Count; ++k) {
            const ControlTemplate& control = dialog.Controls[k];
            for (const char16_t* own : {control.Text, control.Items}) {
                const std::u16string text = english.Translate(own);
                EXPECT_TRUE(text != own || alike.contains(own)) << Utf16ToUtf8(own) << " has no translation";
                EXPECT_EQ(Marks(text), Marks(own)) << Utf16ToUtf8(own);
                EXPECT_EQ(MnemonicOf(text) == 0, MnemonicOf(own) == 0) << Utf16ToUtf8(own);
            }
            const char16_t mnemonic = MnemonicOf(english.Translate(control.Text));
            EXPECT_TRUE(mnemonic == 0 || mnemonics.insert(mnemonic).second)
                << "two of the mnemonic of " << Utf16ToUtf8(control.Text);
        }
    }
}

TEST(English, StandsBeforeAModulesOwnTextsAndGoesAgain) {
    constexpr StringResource Strings[] = {{IdColumnName, u"Spalte %i"}, {1, u"eigener"}};
    constexpr StringResource Foreign[] = {{IdColumnName, u"Column %i"}};
    ModuleState module(StringTable{Strings, 2}, GetDialogTemplates());
    const LanguageResources language{StringTable{Foreign, 1}, GetEnglishResources().DialogTexts,
                                     GetEnglishResources().DialogTextCount};
    module.UseLanguage(&language);
    EXPECT_EQ(module.LoadString(IdColumnName), u"Column %i");
    EXPECT_EQ(module.LoadString(1), u"eigener") << "what the language lacks";
    EXPECT_EQ(std::u16string(module.FindDialog(IdSignalPage)->Title), u"Signals");
    EXPECT_EQ(std::u16string(module.FindDialog(IdSignalPage)->Controls[2].Text), u"&Reset");
    module.UseLanguage(nullptr);
    EXPECT_EQ(module.LoadString(IdColumnName), u"Spalte %i");
    EXPECT_EQ(std::u16string(module.FindDialog(IdSignalPage)->Title), u"Signale");
    EXPECT_FALSE(LoadLanguage(module, "en")) << "a module without a name";
}
