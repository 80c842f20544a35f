// A script in the user's place: drives the settings dialog step by step.
#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "platform/framework/DialogDriver.h"

class CImportFilter;

// Runs the steps of a script; `dump` writes to `out`. A step that can't be done ends the script with an
// error.
class DialogScript : public DialogDriver {
  public:
    DialogScript(std::istream& script, std::ostream& out, const CImportFilter& filter);

    void RunModal(CDialog& dialog) override;
    int ShowMessage(const std::u16string& text, unsigned type) override;
    std::optional<std::u16string> ChooseFile(const FileQuestion& question) override;

    // Empty, or the line and what is wrong with it.
    const std::string& GetError() const { return Error; }

  private:
    struct Step {
        int Line;
        std::string Verb;
        std::string Rest;  // behind the verb and one blank
    };

    // Answers an empty text, or why the step can't be done.
    std::string Do(CDialog& dialog, const Step& step);
    std::string DoOnPage(CDialog& dialog, const Step& step);
    void Dump(CDialog& dialog);

    std::vector<Step> Steps;
    std::ostream& Out;
    const CImportFilter& Filter;
    std::string Error;
    std::optional<std::u16string> NextFile;
    std::vector<std::string> Messages;  // shown since the last dump
};
