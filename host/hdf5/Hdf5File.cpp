#include "host/hdf5/Hdf5File.h"

#include "host/hdf5/Attributes.h"
#include "host/hdf5/Layout.h"

namespace kelvarin::hdf5 {

namespace {

// Nodes of the lists of chunks take ten times their size in memory.
constexpr unsigned ChunksPerHalfNode = 8;

Hdf5Handle CreateFile(const std::string& path) {
    const Hdf5Handle access = MakeFileAccess();
    // As old a format as knows groups in the order of their making.
    Hdf5Checked(H5Pset_libver_bounds(access, H5F_LIBVER_V18, H5F_LIBVER_LATEST));
    const Hdf5Handle creation(H5Pcreate(H5P_FILE_CREATE));
    Hdf5Checked(H5Pset_link_creation_order(creation, H5P_CRT_ORDER_TRACKED | H5P_CRT_ORDER_INDEXED));
    Hdf5Checked(H5Pset_istore_k(creation, ChunksPerHalfNode));
    Hdf5Handle file(H5Fcreate(path.c_str(), H5F_ACC_TRUNC, creation, access));
    WriteAttribute(file, Layout::Format, Layout::FormatName);
    WriteAttribute(file, Layout::Version, Layout::KnownVersion);
    WriteAttribute(file, Layout::Writer, "kelvarin-import " KELVARIN_VERSION);
    return file;
}

}  // namespace

Hdf5File::Hdf5File(const std::string& path) : Part(path), File(CreateFile(Part.Path())) {}

Hdf5File::~Hdf5File() = default;

store::DeviceSink& Hdf5File::BeginDevice() {
    Device = std::make_unique<DeviceWriter>(File, Packer);
    return *Device;
}

std::string Hdf5File::KeepDevice(const store::StoredDevice& device, const store::SampleOrigin& origin) {
    Device->Keep(device, origin);
    std::string failure = Device->Failure();
    Device.reset();
    return failure;
}

std::string Hdf5File::Finish() {
    DropDevice();
    try {
        File.Close();
        Part.Finish();
        return {};
    } catch (const Hdf5Error& error) {
        return error.what();
    }
}

}  // namespace kelvarin::hdf5
