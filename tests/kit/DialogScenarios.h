// What users do in the settings dialog, and what must then be seen. A script has the steps of the program's;
// every line that begins with "?" asks for the state at that moment: a path into the dump and the value that
// must be there.
#pragma once

#include <string>
#include <vector>

struct DialogScenario {
    const char* What;
    std::string File;
    std::string Script;
    std::vector<std::string> Options = {};  // of the program
};

std::vector<DialogScenario> DialogScenarios();
