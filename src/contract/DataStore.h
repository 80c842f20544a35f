// The host's data store as a filter sees it: a device's source makes signals, a signal takes samples.
#pragma once

#include <cstdint>
#include <string>

#include "contract/XmlString.h"

// Type codes of the store that a filter may give a signal.
enum EKelvarinType : std::uint32_t {
    KelvarinBool = 0,     // one byte, 0x00 or 0xFF
    KelvarinDouble = 13,  // 64-bit IEEE 754
    KelvarinInt64 = 15,   // signed 64-bit
    KelvarinChar16 = 19,  // one UTF-16 code unit
    KelvarinString = 22   // UTF-16 code units, without a terminating zero
};

// The byte size of a type code; 0 for a type of variable size and for a code that doesn't exist.
std::uint32_t SizeOfKelvarinType(std::uint32_t type);

// The size that CreateSignal is given for a type of variable size.
constexpr std::uint32_t VariableSampleSize = 0xFFFFFFFF;

namespace DM {

// Answer of the store's operations; 0 is success.
enum EResult : int { ResultOk = 0, ResultRefused = 1 };

#pragma pack(push, 1)
// Identity of a signal in the store.
struct SUniqueSignalId {
    std::uint8_t Reserved[3];
    std::uint32_t DirBlockId;
};
#pragma pack(pop)

// A signal. It belongs to the store; filters hold plain pointers.
class SignalProxy {
  public:
    virtual ~SignalProxy() = default;

    // The name that people see.
    virtual void SetSymbol(const char16_t* symbol) = 0;

    // The unit; empty if none is set.
    virtual std::u16string GetUnit() const = 0;
    virtual void SetUnit(const char16_t* unit) = 0;

    // Adds one sample of `size` bytes at `time`, nanoseconds on the scale of CTimeStamp. The data is copied.
    // A null pointer adds a sample without a value.
    virtual EResult AddSample(const void* data, std::uint32_t size, std::int64_t time) = 0;

    virtual const SUniqueSignalId& GetUniqueSignalId() const = 0;

    // Attaches a piece of XML of a kind of the host's.
    virtual EResult WriteMetaData(std::uint32_t kind, const XmlString& xml) = 0;
};

// Where the signals of a device come from.
class SourceProxy {
  public:
    virtual ~SourceProxy() = default;

    // Makes a signal and hands over a pointer to it; on another result than ResultOk there is none.
    virtual EResult CreateSignal(SignalProxy*& signal, const char16_t* name, std::uint32_t type,
                                 std::uint32_t size) = 0;
};

}  // namespace DM
