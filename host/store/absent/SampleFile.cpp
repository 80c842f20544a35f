// For builds without the HDF5 library.
#include "host/store/SampleFile.h"

#include "host/language/Phrase.h"

namespace kelvarin::store {

bool HasSampleFiles() {
    return false;
}

std::unique_ptr<SampleFile> CreateSampleFile(const std::string&, std::string& complaint) {
    complaint = Phrase("this build has no HDF5");
    return nullptr;
}

std::unique_ptr<SampleArchive> OpenSampleFile(const std::string&, std::string& complaint) {
    complaint = Phrase("this build has no HDF5");
    return nullptr;
}

}  // namespace kelvarin::store
