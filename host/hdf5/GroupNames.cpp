#include "host/hdf5/GroupNames.h"

#include <algorithm>

#include "host/store/StoredSignal.h"
#include "platform/framework/Text.h"

namespace kelvarin::hdf5 {

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

std::int64_t ColumnOf(const store::SignalDescription& about) {
    std::int64_t number = 0;
    std::int64_t weight = 1;
    for (auto digit = about.Name.rbegin(); digit != about.Name.rend() && IsDigit(*digit); ++digit) {
        constexpr std::int64_t Heaviest = 1'000'000'000;
        if (weight > Heaviest) break;
        number += weight * (*digit - u'0');
        weight *= 10;
    }
    return number - 1;
}

}  // namespace kelvarin::hdf5
