// A finished file of samples.
#pragma once

#include "host/hdf5/Hdf5Handle.h"
#include "host/store/SampleFile.h"

namespace kelvarin::hdf5 {

class Hdf5Archive final : public store::SampleArchive {
  public:
    // Raises Hdf5Error if there is no such file or it isn't one of ours.
    explicit Hdf5Archive(const std::string& path);

    std::unique_ptr<store::SampleCheck> FindDevice(const std::string& name, std::size_t n,
                                                   std::string& complaint) override;

  private:
    Hdf5Handle File;
};

}  // namespace kelvarin::hdf5
