// The module's user-visible texts.
#pragma once

#include <string>

// String `id` of the module with every "{PRODUCT_NAME}" and "{SHORT_NAME}" replaced by the product's names;
// empty for a number that doesn't exist.
std::u16string LoadAppString(unsigned id);

// `text` with the two placeholders replaced.
std::u16string FillProductNames(std::u16string text);
