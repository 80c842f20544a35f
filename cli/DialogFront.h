// The library that draws the module's dialog on a display.
#pragma once

#include <memory>

#include "platform/framework/DialogDriver.h"
#include "platform/framework/SharedLibrary.h"

namespace kelvarin::cli {
class DialogFront {
  public:
    // Loads the library beside the program or in the plug-in folder. False if there is none, or no display.
    bool Open();

    DialogDriver& Driver() const { return *Made; }

  private:
    SharedLibrary Library;
    std::unique_ptr<DialogDriver> Made;
};
}  // namespace kelvarin::cli
