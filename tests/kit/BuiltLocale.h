// A locale that the machine need not have, for a test.
#pragma once

#include <optional>
#include <string>

#include "kit/Workdir.h"

// Makes a locale from the system's definitions, such as "ja_JP" in the encoding "EUC-JP", and is the user's
// locale for as long as it lives. Needs localedef and the definitions of the C library.
class BuiltLocale {
  public:
    BuiltLocale(const std::string& definition, const std::string& encoding);
    BuiltLocale(const BuiltLocale&) = delete;
    BuiltLocale& operator=(const BuiltLocale&) = delete;
    ~BuiltLocale();

    // False if the system lacks what it takes; the locale is then the one before.
    bool Exists() const { return Built; }

  private:
    const Workdir Folder;
    bool Built = false;
    std::optional<std::string> NameBefore;
};
