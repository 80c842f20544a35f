#include "resources/AppString.h"

#include <utility>

#include "platform/framework/Text.h"
#include "resources/ModuleResources.h"

namespace {

constexpr std::u16string_view ProductName = u"kelvarin analyzer";
constexpr std::u16string_view ShortName = u"kelvarin";

}  // namespace

std::u16string FillProductNames(std::u16string text) {
    text = ReplaceAll(std::move(text), u"{PRODUCT_NAME}", ProductName);
    return ReplaceAll(std::move(text), u"{SHORT_NAME}", ShortName);
}

std::u16string LoadAppString(unsigned id) {
    return FillProductNames(CsvImportModule().LoadString(id));
}
