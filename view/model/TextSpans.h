// The texts of a signal as spans of samples with the same text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "host/store/StoredDevice.h"

namespace kelvarin::view {
struct TextSpan {
    std::uint64_t First = 0, End = 0;   // numbers of samples, End one beyond
    const std::string* Text = nullptr;  // UTF-8; null for samples without a value. Lives as the TextSpans
};

class TextSpans {
  public:
    // At most so many spans are kept; what comes after them is left out.
    static constexpr std::size_t MostKept = 1'000'000;

    // Reads all samples of a signal of texts or characters.
    explicit TextSpans(const store::StoredSignal& signal);

    std::size_t Count() const { return Starts.size(); }
    TextSpan At(std::size_t span) const;

    // The span that has a sample, which must be there; Count() if that was left out.
    std::size_t SpanOf(std::uint64_t row) const;

    std::uint64_t Rows() const { return End; }

  private:
    std::set<std::string> Known;
    std::vector<const std::string*> Texts;
    std::vector<std::uint64_t> Starts;
    std::uint64_t End = 0;  // of the last span that is kept
};
}  // namespace kelvarin::view
