// The base of every import filter, as the host sees it.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "contract/DeviceHost.h"
#include "platform/framework/FormatText.h"

// One entry of a filter's message list.
struct ImportMessage {
    bool Failure;  // concerns the file as a whole; else one row, one cell or the sidecar file
    int Column;    // 0-based column of a cell; -1 none, -2 the sidecar file
    std::u16string Text;
};

// An object for one source file. The host calls one filter from one thread at a time, in this order: any
// number of the questions, analyses and dialogs, BeginImport, then ImportNextLine until it answers false,
// EndImport (also after a BeginImport that failed), and the destructor.
class CImportFilter {
  public:
    explicit CImportFilter(const char16_t* path);
    CImportFilter(const CImportFilter&) = delete;
    CImportFilter& operator=(const CImportFilter&) = delete;
    virtual ~CImportFilter();

    // Description of the file type, a vertical bar, the file patterns.
    virtual std::u16string GetFileFilter() = 0;
    virtual bool HasOptionDialog() = 0;

    // Lets the user edit the settings: 1 for OK, another value for any other end, 0 if the file can't be
    // analysed.
    virtual std::int64_t ShowOptionDialog() = 0;

    // Takes over the settings of another filter of the same module.
    virtual void CopyOptionsFrom(CImportFilter& other) = 0;
    virtual bool AnalyzeFile() = 0;

    // DeviceHost and TimeContext must be in place. True means that the run has begun.
    virtual bool BeginImport() = 0;

    // Imports one line. `*progress` is set to a percentage now and then. False ends the run.
    virtual bool ImportNextLine(std::uint32_t* progress) = 0;
    virtual void EndImport() = 0;

    // A way around the line-by-line run for filters that have one; the base has none and answers false.
    virtual bool TryFastImport(const char16_t* target, bool append);

    // Hands over the messages added since the last call and empties the list. A host that calls it after each
    // line keeps the list short, however many rows fail.
    std::vector<ImportMessage> TakeMessages();
    bool HasMessages() const { return !Messages.empty(); }

    // An optional interface of this filter (the headers of this folder that have an Id), or null if it has
    // none. It belongs to the filter and is called from the filter's thread.
    template <class Interface>
    Interface* Find() const {
        return static_cast<Interface*>(FindInterface(Interface::Id));
    }

    IDeviceHost* DeviceHost = nullptr;            // the host's
    IRelativeTimeContext* TimeContext = nullptr;  // the host's
    std::u16string FilePath;                      // full path of the source file

  protected:
    // Gives hosts that ask for it an optional interface, which lives as long as the filter.
    template <class Interface>
    void Offer(Interface& interface) {
        Interfaces.emplace_back(Interface::Id, &interface);
    }

    // Adds a message. With arguments the text is a format with placeholders; without it is taken as it is.
    template <class... Arguments>
    void AddMessage(bool failure, int column, bool reserved, const std::u16string& text,
                    const Arguments&... arguments) {
        if constexpr (sizeof...(arguments) == 0) {
            AddMessageText(failure, column, reserved, text);
        } else {
            AddMessageText(failure, column, reserved, FormatText(text, arguments...));
        }
    }

    // The host gave no device.
    void AddDevCountWarningMessage(bool reserved);

    // The data store refused a signal.
    void AddWriteErrorMessage();

  private:
    void AddMessageText(bool failure, int column, bool reserved, std::u16string text);

    // Ids are compared as text: host and module have each their own copy of the constant.
    void* FindInterface(const char* id) const;

    std::vector<ImportMessage> Messages;
    std::vector<std::pair<const char*, void*>> Interfaces;
};
