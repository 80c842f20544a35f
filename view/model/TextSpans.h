// The texts of a signal as spans of samples with the same text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "host/store/StoredDevice.h"
#include "host/store/ValueReader.h"

namespace kelvarin::view {
struct TextSpan {
    std::uint64_t First = 0, End = 0;   // numbers of samples, End one beyond
    const std::string* Text = nullptr;  // UTF-8; null for samples without a value. Lives as the TextSpans
};

class TextSpans {
  public:
    // At most so many spans are kept; what comes after them is left out.
    static constexpr std::size_t MostKept = 1'000'000;

    // Reads the first `count` samples of a signal of texts or characters, which must be settled. `before` is
    // null or what was made of this signal last, with which this shares its spans: the samples that it had
    // aren't read again.
    TextSpans(const store::StoredSignal& signal, std::uint64_t count, const TextSpans* before = nullptr);

    std::size_t Count() const { return Spans; }
    TextSpan At(std::size_t span) const;

    // The span that has a sample, which must be there; Count() if that was left out.
    std::size_t SpanOf(std::uint64_t row) const;

    std::uint64_t Rows() const { return End; }

  private:
    struct Start {
        std::uint64_t Begin;
        const std::string* Text;
    };
    // For the thread that makes spans, but for those Starts that others know of and their texts.
    struct Shared {
        store::BlockTable<Start> Starts;
        std::set<std::string> Known;
        store::StoredSignal::SamplePlace Place;
        std::optional<std::u16string> Last;  // of the last span; none for samples without a value
        bool IsCut = false;                  // samples are left out
    };

    void Take(const void* data, std::uint32_t size, std::u16string& text);

    const std::shared_ptr<Shared> All;
    std::size_t Spans = 0;
    std::uint64_t End = 0;  // of the last span that is kept
};
}  // namespace kelvarin::view
