#include "app/language/GermanTexts.h"

namespace {

constexpr Translation Texts[] = {
    {"{} more columns", "{} weitere Spalten"},
};

}  // namespace

std::span<const Translation> GermanImportTexts() {
    return Texts;
}
