// Text that grows by short pieces.
#include "host/plan/RowText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using kelvarin::plan::RowText;

TEST(RowText, HoldsPiecesOfAnySize) {
    std::string source;
    for (int i = 0; i < 600; ++i) source += static_cast<char>('!' + i % 90);
    for (const std::size_t first : {0u, 1u, 200u, 239u, 240u, 241u, 255u, 256u, 500u}) {
        for (const std::size_t second : {0u, 1u, 15u, 16u, 17u, 31u, 32u, 33u, 584u}) {
            SCOPED_TRACE(std::to_string(first) + " and " + std::to_string(second));
            RowText text;
            text.Add(std::string_view(source).substr(0, first));
            text.AddPadded(source.data(), second);
            text.Add('\t');
            EXPECT_EQ(text.Text(), source.substr(0, first) + source.substr(0, second) + '\t');
            text.Clear();
            text.AddPadded(source.data() + first % 16, second % 500);
            EXPECT_EQ(text.Text(), source.substr(first % 16, second % 500));
        }
    }
}

}  // namespace
