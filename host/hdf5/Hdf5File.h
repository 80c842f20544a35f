// A file of samples while it is written.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/hdf5/ChunkPacker.h"
#include "host/hdf5/DeviceWriter.h"
#include "host/hdf5/PartFile.h"
#include "host/store/SampleFile.h"

namespace kelvarin::hdf5 {

class Hdf5File final : public store::SampleFile {
  public:
    // Raises Hdf5Error.
    explicit Hdf5File(const std::string& path);
    ~Hdf5File() override;

    store::DeviceSink& BeginDevice() override;
    std::string KeepDevice(const store::StoredDevice& device, const store::SampleOrigin& origin) override;
    void DropDevice() override { Device.reset(); }
    std::string Finish() override;

  private:
    PartFile Part;
    ChunkPacker Packer;
    Hdf5Handle File;
    std::unique_ptr<DeviceWriter> Device;
};

}  // namespace kelvarin::hdf5
