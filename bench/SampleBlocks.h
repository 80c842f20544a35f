// The store of the tight loop: samples in fixed blocks, handed over by one virtual call each, as a host takes
// them.
#pragma once

#include <sys/mman.h>

#include <cstdint>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

// Hands out blocks that are never given back. Their pages come with the chunk: a fault for each costs the
// loop a tenth of its time. Huge pages would spare more, but on a virtual machine their first use took
// anything between nothing and twice the time of the loop, which is no bound.
class BlockArena {
  public:
    static constexpr std::size_t BlockSize = 1 << 16;

    static char* Take() {
        static char* next = nullptr;
        static char* end = nullptr;
        if (next == end) {
            void* const chunk = mmap(nullptr, ChunkSize, PROT_READ | PROT_WRITE,
                                     MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
            if (chunk == MAP_FAILED) throw std::bad_alloc();
            next = static_cast<char*>(chunk);
            end = next + ChunkSize;
        }
        return std::exchange(next, next + BlockSize);
    }

  private:
    static constexpr std::size_t ChunkSize = 1 << 21;
};

// Appends values of one size to blocks.
template <class Value>
class BlockList {
  public:
    static constexpr std::size_t PerBlock = BlockArena::BlockSize / sizeof(Value);

    void Add(const Value& value) {
        if (At == End) Grow();
        *At++ = value;
    }

    template <class Visit>
    void ForEach(Visit visit) const {
        for (std::size_t block = 0; block < Blocks.size(); ++block) {
            const std::size_t count =
                block + 1 < Blocks.size() ? PerBlock : static_cast<std::size_t>(At - Blocks[block]);
            for (std::size_t index = 0; index < count; ++index) visit(Blocks[block][index]);
        }
    }

  private:
    [[gnu::noinline]] void Grow() {
        At = reinterpret_cast<Value*>(BlockArena::Take());
        End = At + PerBlock;
        Blocks.push_back(At);
    }

    Value* At = nullptr;
    Value* End = nullptr;
    std::vector<Value*> Blocks;
};

// Appends texts below 64 KiB to blocks, each behind its length in two bytes.
class TextBlocks {
  public:
    const char* Keep(const void* text, std::uint16_t length) {
        const std::size_t size = sizeof length + length;
        if (static_cast<std::size_t>(End - At) < size) {
            if (size > BlockArena::BlockSize) throw std::bad_alloc();
            At = BlockArena::Take();
            End = At + BlockArena::BlockSize;
        }
        std::memcpy(At, &length, sizeof length);
        std::memcpy(At + sizeof length, text, length);
        return std::exchange(At, At + size);
    }

    static std::uint16_t LengthOf(const char* kept) {
        std::uint16_t length = 0;
        std::memcpy(&length, kept, sizeof length);
        return length;
    }

  private:
    char* At = nullptr;
    char* End = nullptr;
};

// What a sample holds beside its time.
union SampleValue {
    double Real;
    std::int64_t Whole;
    const char* Text;  // as TextBlocks keeps it
};

enum class SampleKind { Real, Whole, Text };

// Takes the samples of one column: the value's bytes, their number, nanoseconds.
class SampleSink {
  public:
    virtual ~SampleSink() = default;
    virtual void AddSample(const void* value, std::uint32_t size, std::int64_t time) = 0;
    // Numbers: their sum. Texts: the sum of their lengths.
    virtual double Sum() const = 0;
};

// Keeps values, or texts behind their length, with their times or without.
template <SampleKind Kind, bool OwnTimes>
class BlockSink : public SampleSink {
  public:
    void AddSample(const void* value, std::uint32_t size, std::int64_t time) override {
        Sample sample;
        if constexpr (Kind == SampleKind::Text) {
            sample.Value.Text = Texts.Keep(value, static_cast<std::uint16_t>(size));
        } else {
            std::memcpy(&sample.Value, value, sizeof sample.Value);
        }
        if constexpr (OwnTimes) sample.Time = time;
        Samples.Add(sample);
    }

    double Sum() const override {
        double sum = 0;
        Samples.ForEach([&](const Sample& sample) { sum += Measure(sample.Value); });
        return sum;
    }

  private:
    struct Timed {
        SampleValue Value;
        std::int64_t Time;
    };
    struct Untimed {
        SampleValue Value;
    };
    using Sample = std::conditional_t<OwnTimes, Timed, Untimed>;

    static double Measure(const SampleValue& value) {
        if constexpr (Kind == SampleKind::Real) return value.Real;
        if constexpr (Kind == SampleKind::Whole) return static_cast<double>(value.Whole);
        if constexpr (Kind == SampleKind::Text) return TextBlocks::LengthOf(value.Text);
    }

    BlockList<Sample> Samples;
    TextBlocks Texts;
};
