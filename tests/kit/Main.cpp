// Stands in for the host: the profile and the module's application are in place before any test runs.
#include <gtest/gtest.h>

#include <memory>

#include "contract/SupportFunctions.h"
#include "kit/MemoryProfile.h"
#include "plugin/CsvImportApp.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Empty, and never the profile of whoever runs the tests.
    SetProcessProfile(std::make_shared<MemoryProfile>());
    SetPreferredLanguage("de");  // whoever runs them
    CCsvImportApp app;
    if (!app.InitInstance()) return 1;
    return RUN_ALL_TESTS();
}
