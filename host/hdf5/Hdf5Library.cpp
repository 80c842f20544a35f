#include "host/hdf5/Hdf5Library.h"

#include <algorithm>
#include <string_view>

#include "host/language/Phrase.h"

namespace kelvarin::hdf5 {
namespace {
// Reads the entries of the library's error stack from the outermost call inwards.
herr_t ReadEntry(unsigned, const H5E_error2_t* entry, void* data) {
    auto& reason = *static_cast<std::string*>(data);
    const std::string text = entry->desc == nullptr ? "" : entry->desc;
    // The innermost entry has the operating system's message among other things.
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

Hdf5Handle MakeTextType() {
    Hdf5Handle type(H5Tcopy(H5T_C_S1));
    Hdf5Checked(H5Tset_size(type, H5T_VARIABLE));
    Hdf5Checked(H5Tset_cset(type, H5T_CSET_UTF8));
    return type;
}

void WriteScalar(hid_t object, const char* name, hid_t type, const void* value) {
    const Hdf5Handle space(H5Screate(H5S_SCALAR));
    const Hdf5Handle attribute(H5Acreate2(object, name, type, space, H5P_DEFAULT, H5P_DEFAULT));
    Hdf5Checked(H5Awrite(attribute, type, value));
}

void ReadScalar(hid_t object, const char* name, hid_t type, void* value) {
    const Hdf5Handle attribute(H5Aopen(object, name, H5P_DEFAULT));
    const Hdf5Handle stored(H5Aget_type(attribute));
    const Hdf5Handle space(H5Aget_space(attribute));
    const bool isText = H5Tget_class(type) == H5T_STRING;
    if (isText != (H5Tget_class(stored) == H5T_STRING) || (isText && H5Tis_variable_str(stored) <= 0) ||
        Hdf5Checked(H5Sget_simple_extent_npoints(space)) != 1)
        throw Hdf5Error(Phrase("attribute '{}' is of another type", name));
    Hdf5Checked(H5Aread(attribute, type, value));
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
    Hdf5Checked(H5PLset_loading_state(0));
    // Without this it would keep what it frees for the next data set of the kind.
    constexpr int Most = 1 << 20;
    constexpr int MostOfAKind = 1 << 16;
    Hdf5Checked(H5set_free_list_limits(Most, MostOfAKind, Most, MostOfAKind, Most, MostOfAKind));
    KeepHdf5Quiet();
}

void KeepHdf5Quiet() {
    thread_local bool isQuiet = false;
    if (!isQuiet) Hdf5Checked(H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr));
    isQuiet = true;
}

Hdf5Handle MakeGroup(hid_t parent, const std::string& name) {
    const Hdf5Handle creation(H5Pcreate(H5P_GROUP_CREATE));
    Hdf5Checked(H5Pset_link_creation_order(creation, H5P_CRT_ORDER_TRACKED | H5P_CRT_ORDER_INDEXED));
    const Hdf5Handle link(H5Pcreate(H5P_LINK_CREATE));
    Hdf5Checked(H5Pset_char_encoding(link, H5T_CSET_UTF8));
    return Hdf5Handle(H5Gcreate2(parent, name.c_str(), link, creation, H5P_DEFAULT));
}

void RequireMember(hid_t group, const std::string& path) {
    H5L_info_t link;
    Hdf5Checked(H5Lget_info(group, path.c_str(), &link, H5P_DEFAULT));
    if (link.type != H5L_TYPE_HARD)
        throw Hdf5Error(Phrase("'{}' is a link by name, which is not followed", path));
}

Hdf5Handle OpenGroup(hid_t parent, const std::string& name) {
    RequireMember(parent, name);
    return Hdf5Handle(H5Gopen2(parent, name.c_str(), H5P_DEFAULT));
}

std::vector<std::string> MemberNames(hid_t group) {
    H5G_info_t info;
    Hdf5Checked(H5Gget_info(group, &info));
    std::vector<std::string> names;
    for (hsize_t i = 0; i < info.nlinks; ++i) {
        const auto get = [&](char* name, std::size_t size) {
            return static_cast<std::size_t>(Hdf5Checked(
                H5Lget_name_by_idx(group, ".", H5_INDEX_CRT_ORDER, H5_ITER_INC, i, name, size, H5P_DEFAULT)));
        };
        std::string name(get(nullptr, 0), '\0');
        get(name.data(), name.size() + 1);
        names.push_back(std::move(name));
    }
    return names;
}

std::string GroupNames::Add(const std::string& wanted) {
    // A NUL would end the name, and a lone point means the group itself.
    std::string name = wanted.substr(0, wanted.find('\0'));
    std::replace(name.begin(), name.end(), '/', '_');
    if (name.empty() || name == ".") name = "_";
    const std::string plain = name;
    while (Hdf5Checked(H5Lexists(Group, name.c_str(), H5P_DEFAULT)) > 0)
        name = plain + " (" + std::to_string(++Numbers.try_emplace(plain, 1).first->second) + ")";
    return name;
}

void WriteAttribute(hid_t object, const char* name, std::int64_t number) {
    WriteScalar(object, name, H5T_NATIVE_INT64, &number);
}

void WriteAttribute(hid_t object, const char* name, const std::string& text) {
    const char* const characters = text.c_str();
    WriteScalar(object, name, MakeTextType(), &characters);
}

std::int64_t ReadNumberAttribute(hid_t object, const char* name) {
    std::int64_t number = 0;
    ReadScalar(object, name, H5T_NATIVE_INT64, &number);
    return number;
}

std::string ReadTextAttribute(hid_t object, const char* name) {
    char* characters = nullptr;
    ReadScalar(object, name, MakeTextType(), &characters);
    std::string text = characters == nullptr ? "" : characters;
    H5free_memory(characters);
    return text;
}

bool HasAttribute(hid_t object, const char* name) {
    return Hdf5Checked(H5Aexists(object, name)) > 0;
}
}  // namespace kelvarin::hdf5
