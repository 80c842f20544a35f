#include "host/store/SampleFile.h"

#include "host/hdf5/Hdf5Archive.h"
#include "host/hdf5/Hdf5File.h"

namespace kelvarin::store {

namespace {

template <class Made, class Base>
std::unique_ptr<Base> MakeOrComplain(const std::string& path, std::string& complaint) {
    try {
        hdf5::BeginHdf5();
        return std::make_unique<Made>(path);
    } catch (const hdf5::Hdf5Error& error) {
        complaint = error.what();
        return nullptr;
    }
}

}  // namespace

bool HasSampleFiles() {
    return true;
}

std::unique_ptr<SampleFile> CreateSampleFile(const std::string& path, std::string& complaint) {
    return MakeOrComplain<hdf5::Hdf5File, SampleFile>(path, complaint);
}

std::unique_ptr<SampleArchive> OpenSampleFile(const std::string& path, std::string& complaint) {
    return MakeOrComplain<hdf5::Hdf5Archive, SampleArchive>(path, complaint);
}

}  // namespace kelvarin::store
