#include "platform/framework/DialogDriver.h"

namespace {

DialogDriver* processDriver = nullptr;

}  // namespace

void SetDialogDriver(DialogDriver* driver) {
    processDriver = driver;
}

DialogDriver* GetDialogDriver() {
    return processDriver;
}
