// The built import module, loaded as a front end loads it.
#pragma once

#include <stdexcept>

#include "host/ModuleLoader.h"

// The module beside the test program. Loaded once, in use until the program ends.
inline const kelvarin::ModuleLoader& HostModule() {
    static const auto* const module = [] {
        auto* const loader = new kelvarin::ModuleLoader;
        const std::string failure = loader->Load();
        if (!failure.empty()) throw std::runtime_error(failure);
        return loader;
    }();
    return *module;
}
