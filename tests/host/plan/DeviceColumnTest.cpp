// Columns that tell the devices of a file apart, and such that only look like it.
#include "host/plan/DeviceColumn.h"

#include <gtest/gtest.h>

#include <string>

#include "host/plan/CopyKit.h"

namespace {

using namespace kelvarin::plan;

// "column: device device", or "none". Rows of seconds, two names and an integer, after a header.
std::string DevicesOf(const std::string& rows) {
    const Workdir folder;
    const ReadingPlan plan = copies::PlanOf("t@ a#t b#t n#i", copies::Number(copies::OneSecond));
    const auto found = FindDeviceColumn(folder.Write("a.csv", "t;a;b;n\n" + rows), plan);
    if (!found) return "none";
    std::string text = std::to_string(found->Column) + ":";
    for (const std::u16string& device : found->Devices) text += " " + Utf16ToUtf8(device);
    return text;
}

TEST(DeviceColumn, IsTheOneByWhichTimesRise) {
    const struct {
        const char* About;
        const char* Rows;
        const char* Devices;
    } cases[] = {
        {"rows in turns", "1;x;p;5\n1;y;p;6\n2;x;p;7\n2;y;p;8\n", "1: x y"},
        {"turns in any order", "1;y;p;5\n1;x;p;6\n2;x;p;7\n2;y;p;8\n", "1: y x"},
        {"numbers of devices", "1;x;p;5\n1;x;p;6\n2;x;p;5\n2;x;p;6\n", "3: 5 6"},
        {"different times", "1.0;x;p;5\n0.9;y;p;6\n2;x;p;7\n1.9;y;p;8\n", "1: x y"},
        {"lines that are no rows", "1;x;p;5\n1;y;p;6\n\nt;a;b;n\n2;x;p;7\n2;y;p;8\n", "1: x y"},
        {"the fewest devices", "1;x;p;5\n1;y;q;6\n2;x;p;7\n2;z;q;8\n3;x;p;5\n3;y;q;6\n4;x;p;5\n4;z;q;6\n",
         "2: p q"},
        // Rows in order need no device.
        {"times that rise", "1;x;p;5\n2;y;p;6\n3;x;p;7\n4;y;p;8\n", "none"},
        {"a single repeat", "1;x;p;5\n2;y;p;6\n3;x;p;7\n3;y;p;8\n4;x;p;5\n5;x;p;5\n6;x;p;5\n", "none"},
        // A state, not a device.
        {"a device's own time repeats", "1;x;p;5\n1;y;p;6\n2;x;p;7\n2;x;p;8\n", "none"},
        {"names that come once", "1;x;p;5\n1;y;q;6\n2;z;r;7\n2;w;s;8\n", "none"},
        {"a row without a name", "1;x;p;5\n1;y;p;5\n2;x;p;7\n2;;p;8\n", "none"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.About);
        EXPECT_EQ(DevicesOf(c.Rows), c.Devices);
    }
}

TEST(DeviceColumn, HasNoMoreThanSixteen) {
    for (const int count : {16, 17}) {
        SCOPED_TRACE(count);
        std::string rows;
        for (const char* const time : {"1", "2"}) {
            for (int device = 0; device < count; ++device)
                rows += time + std::string(";x") + std::to_string(device) + ";p;5\n";
        }
        EXPECT_EQ(DevicesOf(rows) == "none", count > 16);
    }
}

}  // namespace
