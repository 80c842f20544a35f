#include "host/TypeNames.h"

#include "settings/DataType.h"

namespace kelvarin {
namespace {
struct TypeName {
    const char* Word;
    int Type;
};
constexpr TypeName TypeNames[] = {
    {"boolean", CsvTypeBoolean}, {"integer", CsvTypeInteger}, {"integer-unit", CsvTypeIntegerUnit},
    {"hex", CsvTypeHex},         {"float", CsvTypeFloat},     {"float-unit", CsvTypeFloatUnit},
    {"character", CsvTypeChar},  {"text", CsvTypeString},
};
}  // namespace

std::string TypeWord(int type) {
    for (const TypeName& name : TypeNames) {
        if (name.Type == type) return name.Word;
    }
    return {};
}

int TypeNamed(const std::string& word) {
    for (const TypeName& name : TypeNames) {
        if (name.Word == word) return name.Type;
    }
    return CsvTypeUndefined;
}

std::string AllTypeNames() {
    std::string words;
    for (const TypeName& name : TypeNames) words += (words.empty() ? "" : ", ") + std::string(name.Word);
    return words;
}
}  // namespace kelvarin
