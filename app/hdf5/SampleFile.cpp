#include "app/archive/SampleFile.h"

#include "app/hdf5/Hdf5Archive.h"
#include "app/hdf5/Hdf5File.h"

namespace {

template <class Made, class Base>
std::unique_ptr<Base> MakeOrComplain(const std::string& path, std::string& complaint) {
    try {
        BeginHdf5();
        return std::make_unique<Made>(path);
    } catch (const Hdf5Error& error) {
        complaint = error.what();
        return nullptr;
    }
}

}  // namespace

bool HasSampleFiles() {
    return true;
}

std::unique_ptr<SampleFile> CreateSampleFile(const std::string& path, std::string& complaint) {
    return MakeOrComplain<Hdf5File, SampleFile>(path, complaint);
}

std::unique_ptr<SampleArchive> OpenSampleFile(const std::string& path, std::string& complaint) {
    return MakeOrComplain<Hdf5Archive, SampleArchive>(path, complaint);
}
