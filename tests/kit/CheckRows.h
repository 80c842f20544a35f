// Tables of test cases in one text.
#pragma once

#include <gtest/gtest.h>

#include "platform/framework/Text.h"

// Checks what a function makes of each input of a table "input->outcome|input->outcome". It takes the input
// as wide text if it can.
template <class Function>
void CheckRows(std::string_view table, Function outcome) {
    while (!table.empty()) {
        const std::string_view row = table.substr(0, table.find('|'));
        table.remove_prefix(std::min(row.size() + 1, table.size()));
        const std::string input(row.substr(0, row.find("->")));
        const std::string_view expected = row.substr(input.size() + 2);
        if constexpr (std::is_invocable_v<Function, std::u16string>) {
            EXPECT_EQ(outcome(Utf8ToUtf16(input)), expected) << input;
        } else {
            EXPECT_EQ(outcome(input), expected) << input;
        }
    }
}
