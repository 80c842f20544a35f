// The module's own texts.
#include "resources/AppString.h"

#include <gtest/gtest.h>

#include "host/SupportFunctions.h"
#include "resources/ModuleResources.h"
#include "resources/ResourceIds.h"
#include "settings/DataType.h"

TEST(AppString, FillsProductNames) {
    const struct {
        const char16_t *Text, *Filled;
    } cases[] = {
        {u"", u""},
        {u"{PRODUCT_NAME}", u"kelvarin analyzer"},
        {u"{SHORT_NAME}", u"kelvarin"},
        {u"a {SHORT_NAME}, b {PRODUCT_NAME} and {SHORT_NAME}{SHORT_NAME}.",
         u"a kelvarin, b kelvarin analyzer and kelvarinkelvarin."},
        // no placeholders
        {u"{short_name} {SHORT_NAME {PRODUCT NAME} SHORT_NAME}",
         u"{short_name} {SHORT_NAME {PRODUCT NAME} SHORT_NAME}"},
        {u"{{SHORT_NAME}} %s", u"{kelvarin} %s"},
    };
    for (const auto& c : cases) EXPECT_EQ(FillProductNames(c.Text), c.Filled);
}

TEST(AppString, LoadsFromItsOwnModule) {
    constexpr StringResource Strings[] = {{IdAppName, u"another module"}};
    ModuleState other(StringTable{Strings, 1});
    const AFX_MAINTAIN_STATE2 context(other);
    EXPECT_EQ(LoadAppString(IdAppName), u"CSV-Import");
    EXPECT_EQ(LoadAppString(0), u"");
    EXPECT_EQ(LoadAppString(65535), u"");
}

TEST(AppString, NoTextHasAPlaceholderLeft) {
    const StringTable& table = CsvImportModule().Resources;
    for (std::size_t i = 0; i < table.Count; ++i) {
        EXPECT_EQ(LoadAppString(table.Entries[i].Id).find(u'{'), std::u16string::npos) << table.Entries[i].Id;
        EXPECT_EQ(table.Find(table.Entries[i].Id), table.Entries[i].Text) << table.Entries[i].Id << " twice";
    }
}

TEST(AppString, EveryDataTypeHasAName) {
    const AFX_MAINTAIN_STATE2 context(CsvImportModule());
    EXPECT_EQ(LoadSubString(IdDataTypeNames, CsvTypeUndefined), u"nicht definiert");
    EXPECT_EQ(LoadSubString(IdDataTypeNames, CsvTypeHex), u"Hexadezimalzahl");
    EXPECT_EQ(LoadSubString(IdDataTypeNames, CsvTypeString), u"Zeichenkette");
    EXPECT_EQ(LoadSubString(IdDataTypeNames, CsvTypeString + 1), u"");
}
