// Optional interface of a filter: its settings, for a host that shows them.
#pragma once

#include <string>

class CCsvImportSettings;

class ISettingsView {
  public:
    static constexpr const char* Id = "kelvarin.SettingsView/2";

    virtual ~ISettingsView() = default;

    // The filter's own record; it changes with each analysis and dialog.
    virtual const CCsvImportSettings& GetSettings() const = 0;

    // The warning about the filter's sidecar; empty if there is none.
    virtual const std::u16string& GetSidecarWarning() const = 0;

    // Why the source file could not be opened or read when the filter last used it, as the operating system
    // says it; empty if it could.
    virtual const std::u16string& GetFileFailure() const = 0;

    // Why the sidecar that the last dialog was to write is not written, in the system's words; empty if it
    // is, or if none was to be written.
    virtual const std::string& GetSidecarFailure() const = 0;
};
