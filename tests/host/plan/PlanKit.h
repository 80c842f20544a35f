// Samples of files that are given as text, for the tests of the plan.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "host/plan/FileSample.h"
#include "platform/framework/Text.h"

// All lines of a short file.
inline kelvarin::plan::FileSample SampleOf(std::string_view text) {
    kelvarin::plan::FileSample sample;
    sample.IsWhole = true;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        sample.Lines.push_back(
            {sample.Lines.size() + 1, Utf8ToUtf16(std::string(text.substr(0, end))), false});
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    sample.Head = sample.Lines.size();
    return sample;
}
