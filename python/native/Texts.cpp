#include "python/native/Texts.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <vector>

namespace kelvarin::python {
namespace py = pybind11;

namespace {
using store::StoredSignal;

PyObject* MakeText(const StoredSignal::KeptText& text) {
    if (text.IsNarrow)
        return PyUnicode_FromKindAndData(PyUnicode_1BYTE_KIND, text.Bytes, Py_ssize_t{text.Length});
    int byteOrder = -1;  // little-endian, and no mark of it in the text
    return PyUnicode_DecodeUTF16(text.Bytes, Py_ssize_t{text.Length} * 2, "surrogatepass", &byteOrder);
}

// The texts made last, by their hash: measured texts repeat, and to make an object takes longer than to find
// it.
class RecentTexts {
  public:
    RecentTexts() : Slots(SlotCount) {}
    RecentTexts(const RecentTexts&) = delete;
    RecentTexts& operator=(const RecentTexts&) = delete;
    ~RecentTexts() {
        for (const Slot& slot : Slots) Py_XDECREF(slot.Object);
    }

    // A new reference.
    PyObject* Get(const StoredSignal::KeptText& text) {
        const std::string_view bytes(text.Bytes, text.IsNarrow ? text.Length : std::size_t{text.Length} * 2);
        if (bytes.size() > LongestShared) return Checked(MakeText(text));
        Slot& slot = Slots[std::hash<std::string_view>()(bytes) % SlotCount];
        if (slot.Object == nullptr || slot.IsNarrow != text.IsNarrow || slot.Bytes != bytes) {
            PyObject* const made = Checked(MakeText(text));
            Py_XDECREF(slot.Object);
            slot = {bytes, text.IsNarrow, made};
        }
        Py_INCREF(slot.Object);
        return slot.Object;
    }

  private:
    struct Slot {
        std::string_view Bytes;  // in the store
        bool IsNarrow = false;
        PyObject* Object = nullptr;
    };

    static PyObject* Checked(PyObject* object) {
        if (object == nullptr) throw py::error_already_set();
        return object;
    }

    static constexpr std::size_t SlotCount = 4096;
    static constexpr std::size_t LongestShared = 256;

    std::vector<Slot> Slots;
};

// Takes the place of what is there, which is None or null in a new array.
void Put(PyObject*& item, PyObject* object) {
    PyObject* const before = item;
    item = object;
    Py_XDECREF(before);
}

PyObject* NewNone() {
    Py_INCREF(Py_None);
    return Py_None;
}
}  // namespace

void FillTexts(const StoredSignal& signal, PyObject** items) {
    RecentTexts recent;
    signal.VisitTexts([&](const StoredSignal::KeptText& text) {
        Put(*items++, text.Bytes == nullptr ? NewNone() : recent.Get(text));
    });
}

void FillCharacters(const StoredSignal& signal, PyObject** items) {
    const auto count = static_cast<std::size_t>(signal.KeptCount());
    std::vector<char16_t> units(count);
    std::vector<std::uint8_t> gaps(count);
    signal.CopyValues(units.data());
    signal.CopyGaps(gaps.data());
    RecentTexts recent;
    for (std::size_t i = 0; i < count; ++i) {
        const auto* const bytes = reinterpret_cast<const char*>(&units[i]);
        Put(items[i], gaps[i] != 0 ? NewNone() : recent.Get({bytes, 1, false}));
    }
}
}  // namespace kelvarin::python
