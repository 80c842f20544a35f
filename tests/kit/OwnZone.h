// Another time zone than the machine's, for a test.
#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

// The process's local time is that of a zone while the object lives: the name of a zone in the system's
// database, or its rules as POSIX has them in TZ. Not on Windows, where a process has no zone of its own.
class OwnZone {
  public:
    explicit OwnZone(const std::string& zone) {
        if (const char* const before = std::getenv("TZ")) Before = before;
        Set(zone);
    }
    OwnZone(const OwnZone&) = delete;
    OwnZone& operator=(const OwnZone&) = delete;
    ~OwnZone() {
        if (Before) {
            Set(*Before);
        } else {
            unsetenv("TZ");
            tzset();
        }
    }

  private:
    static void Set(const std::string& zone) {
        setenv("TZ", zone.c_str(), 1);
        tzset();
    }

    std::optional<std::string> Before;
};
