// A file of samples while it is written.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/archive/SampleFile.h"
#include "app/hdf5/ChunkPacker.h"
#include "app/hdf5/DeviceWriter.h"
#include "app/hdf5/PartFile.h"

class Hdf5File final : public SampleFile {
  public:
    // Raises Hdf5Error.
    explicit Hdf5File(const std::string& path);
    ~Hdf5File() override;

    DeviceSink& BeginDevice() override;
    std::string KeepDevice(const StoredDevice& device, const SampleOrigin& origin) override;
    void DropDevice() override { Device.reset(); }
    std::string Finish() override;

  private:
    PartFile Part;
    ChunkPacker Packer;
    Hdf5Handle File;
    std::unique_ptr<DeviceWriter> Device;
};
