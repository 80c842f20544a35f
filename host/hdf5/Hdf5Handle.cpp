#include "host/hdf5/Hdf5Handle.h"

#include <algorithm>
#include <string_view>

namespace kelvarin::hdf5 {

namespace {

// Reads the entries of the library's error stack from the outermost call inwards.
herr_t ReadEntry(unsigned, const H5E_error2_t* entry, void* data) {
    auto& reason = *static_cast<std::string*>(data);
    const std::string text = entry->desc == nullptr ? "" : entry->desc;
    // What the operating system said stands among other things in the innermost entry.
    constexpr std::string_view Mark = "error message = '";
    const std::size_t mark = text.find(Mark);
    if (mark == std::string::npos) {
        reason = text;
    } else {
        const std::size_t begin = mark + Mark.size();
        reason = text.substr(begin, text.find('\'', begin) - begin);
    }
    return 0;
}

}  // namespace

void RaiseHdf5Error() {
    std::string reason;
    H5Ewalk2(H5E_DEFAULT, H5E_WALK_DOWNWARD, ReadEntry, &reason);
    H5Eclear2(H5E_DEFAULT);
    throw Hdf5Error(reason.empty() ? "unknown error" : reason);
}

Hdf5Handle MakeFileAccess() {
    Hdf5Handle access(H5Pcreate(H5P_FILE_ACCESS));
    // The library counts what it keeps of groups and data sets as they are in the file; in memory they take
    // several times that.
    constexpr std::size_t MostCached = 4 << 20;
    H5AC_cache_config_t cache = {};
    cache.version = H5AC__CURR_CACHE_CONFIG_VERSION;
    Hdf5Checked(H5Pget_mdc_config(access, &cache));
    cache.max_size = cache.initial_size = MostCached;
    cache.min_size = std::min(cache.min_size, MostCached);
    Hdf5Checked(H5Pset_mdc_config(access, &cache));
    // For writing it would cut a file first and ask for its lock then; a folder that is only for reading may
    // have no locks.
    Hdf5Checked(H5Pset_file_locking(access, false, true));
    return access;
}

void BeginHdf5() {
    H5dont_atexit();
    Hdf5Checked(H5open());
    // What it frees it would else keep for the next data set of the kind.
    constexpr int Most = 1 << 20;
    constexpr int MostOfAKind = 1 << 16;
    Hdf5Checked(H5set_free_list_limits(Most, MostOfAKind, Most, MostOfAKind, Most, MostOfAKind));
    Hdf5Checked(H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr));
}

}  // namespace kelvarin::hdf5
