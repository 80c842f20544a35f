#include "kit/ColumnText.h"

#include "platform/framework/Text.h"

std::string DescribeType(ECsvDataType type, const std::u16string& unit) {
    constexpr const char* Names[] = {"None",  "Boolean",   "Integer", "IntegerUnit", "Hex",
                                     "Float", "FloatUnit", "Char",    "String"};
    return Names[type] + (unit.empty() ? "" : '[' + Utf16ToUtf8(unit) + ']');
}

std::string DescribeColumns(CCsvImportSettings& settings) {
    std::string text;
    for (const auto& [index, info] : settings.ColumnMap) {
        if (index == settings.ColumnCount) text += text.empty() ? "|" : " |";
        if (!text.empty()) text += ' ';
        if (!info.ImportColumn) text += '-';
        text += Utf16ToUtf8(info.GetDisplayName()) + ':' + DescribeType(info.GetEffectiveType(), info.Unit);
    }
    return text;
}
