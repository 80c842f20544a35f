#include "host/hdf5/ChunkedDataset.h"

namespace kelvarin::hdf5 {

namespace {

// Whole chunks pass the library's cache.
Hdf5Handle WithoutCache() {
    Hdf5Handle access(H5Pcreate(H5P_DATASET_ACCESS));
    Hdf5Checked(H5Pset_chunk_cache(access, 1, 0, H5D_CHUNK_CACHE_W0_DEFAULT));
    return access;
}

void SetExtent(hid_t set, std::uint64_t count) {
    const hsize_t extent = count;
    Hdf5Checked(H5Dset_extent(set, &extent));
}

}  // namespace

void ChunkedDataset::Create(std::size_t chunkValues, const void* fill) {
    ChunkValues = chunkValues;
    const hsize_t count = 0;
    const hsize_t most = H5S_UNLIMITED;
    const hsize_t chunk = chunkValues;
    const Hdf5Handle space(H5Screate_simple(1, &count, &most));
    const Hdf5Handle creation(H5Pcreate(H5P_DATASET_CREATE));
    Hdf5Checked(H5Pset_chunk(creation, 1, &chunk));
    if (Type.Width > 1) Hdf5Checked(H5Pset_shuffle(creation));
    constexpr unsigned Level = 1;  // readers take no notice of it
    Hdf5Checked(H5Pset_deflate(creation, Level));
    if (fill != nullptr) Hdf5Checked(H5Pset_fill_value(creation, Type.Id, fill));
    Hdf5Checked(H5Pset_obj_track_times(creation, false));
    Name = std::to_string(Place.Made++);
    // Not without a name: the library loses such data sets when it has many.
    const Hdf5Handle set(
        H5Dcreate2(Place.Group, Name.c_str(), Type.Id, space, H5P_DEFAULT, creation, H5P_DEFAULT));
}

Hdf5Handle ChunkedDataset::Open() const {
    return Hdf5Handle(H5Dopen2(Place.Group, Name.c_str(), WithoutCache()));
}

void ChunkedDataset::Write(std::uint64_t chunk, std::span<const std::uint8_t> bytes, std::uint64_t count) {
    const Hdf5Handle set = Open();
    SetExtent(set, count);
    const std::span<const std::uint8_t> packed = Place.Packer.Pack(bytes, Type.Width);
    // The mask names the filters that a chunk did without.
    const std::uint32_t leftOut = packed.empty() ? (Type.Width > 1 ? 3 : 1) : 0;
    const std::span<const std::uint8_t> written = packed.empty() ? bytes : packed;
    const hsize_t offset = chunk * ChunkValues;
    Hdf5Checked(H5Dwrite_chunk(set, H5P_DEFAULT, leftOut, &offset, written.size(), written.data()));
}

void ChunkedDataset::SetCount(std::uint64_t count) {
    SetExtent(Open(), count);
}

void ChunkedDataset::MoveInto(hid_t group, const char* name) {
    Hdf5Checked(H5Lmove(Place.Group, Name.c_str(), group, name, H5P_DEFAULT, H5P_DEFAULT));
}

}  // namespace kelvarin::hdf5
