#include "host/hdf5/Hdf5Archive.h"

#include "host/hdf5/Attributes.h"
#include "host/hdf5/DeviceCheck.h"
#include "host/hdf5/GroupNames.h"
#include "host/hdf5/Layout.h"
#include "host/language/Phrase.h"

namespace kelvarin::hdf5 {

Hdf5Archive::Hdf5Archive(const std::string& path)
    : File(H5Fopen(path.c_str(), H5F_ACC_RDONLY, MakeFileAccess())) {
    if (!HasAttribute(File, Layout::Format) || ReadTextAttribute(File, Layout::Format) != Layout::FormatName)
        throw Hdf5Error(Phrase("it was not written by import --store"));
    const std::int64_t version = ReadNumberAttribute(File, Layout::Version);
    if (version != Layout::KnownVersion)
        throw Hdf5Error(Phrase("its format is of version {}, known is {}", version, Layout::KnownVersion));
}

std::unique_ptr<store::SampleCheck> Hdf5Archive::FindDevice(const std::string& name, std::size_t n,
                                                            std::string& complaint) {
    try {
        std::string known;
        for (const std::string& member : MemberNames(File)) {
            Hdf5Handle group(H5Gopen2(File, member.c_str(), H5P_DEFAULT));
            const std::string held = ReadTextAttribute(group, Layout::Name);
            if (held == name && n-- == 0) return std::make_unique<DeviceCheck>(std::move(group));
            known += (known.empty() ? "'" : ", '") + held + "'";
        }
        complaint = Phrase("it has no device '{}'; it has {}", name, known);
    } catch (const Hdf5Error& error) {
        complaint = error.what();
    }
    return nullptr;
}

}  // namespace kelvarin::hdf5
