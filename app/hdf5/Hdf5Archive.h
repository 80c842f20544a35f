// A finished file of samples.
#pragma once

#include "app/archive/SampleFile.h"
#include "app/hdf5/Hdf5Handle.h"

class Hdf5Archive final : public SampleArchive {
  public:
    // Raises Hdf5Error if there is no such file or it isn't one of ours.
    explicit Hdf5Archive(const std::string& path);

    std::unique_ptr<SampleCheck> FindDevice(const std::string& name, std::size_t n,
                                            std::string& complaint) override;

  private:
    Hdf5Handle File;
};
