// A script in the user's place: works the settings dialog step by step.
#pragma once

#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "contract/ImportFilter.h"
#include "platform/framework/DialogDriver.h"

class CPropertyPage;

namespace kelvarin::cli {
// Does the steps of a script, one a line; `dump` writes to `out`. A step that can't be done ends the script
// with an error.
class DialogScript : public DialogDriver {
  public:
    DialogScript(std::istream& script, std::ostream& out, const CImportFilter& filter)
        : Script(script), Out(out), Filter(filter) {}

    void RunModal(CDialog& dialog) override;
    int ShowMessage(const std::u16string& text, unsigned type) override;
    std::optional<std::u16string> ChooseFile(const FileQuestion& question) override;

    // Empty, or the line and what is wrong with it.
    const std::string& GetError() const { return Error; }

  private:
    // A step is a verb and the rest of its line. Empty, or why it can't be done.
    std::string Do(CDialog& dialog, const std::string& verb, std::string rest);
    std::string DoOnPage(CPropertyPage& page, const std::string& verb, std::string rest);
    void Dump(CDialog& dialog);

    std::istream& Script;
    std::ostream& Out;
    const CImportFilter& Filter;
    std::string Error;
    std::optional<std::u16string> NextFile;
    std::vector<std::string> Messages;  // shown since the last dump
};
}  // namespace kelvarin::cli
