#include "app/hdf5/ChunkedDataset.h"

void ChunkedDataset::Create(const DatasetPlace& place, const ElementType& type, std::size_t chunkValues,
                            const void* fill) {
    Packer = &place.Packer;
    ChunkValues = chunkValues;
    Width = type.Width;
    const hsize_t count = 0;
    const hsize_t most = H5S_UNLIMITED;
    const hsize_t chunk = chunkValues;
    const Hdf5Handle space(H5Screate_simple(1, &count, &most));
    const Hdf5Handle creation(H5Pcreate(H5P_DATASET_CREATE));
    Hdf5Checked(H5Pset_chunk(creation, 1, &chunk));
    if (Width > 1) Hdf5Checked(H5Pset_shuffle(creation));
    constexpr unsigned Level = 1;  // readers take no notice of it
    Hdf5Checked(H5Pset_deflate(creation, Level));
    if (fill != nullptr) Hdf5Checked(H5Pset_fill_value(creation, type.Id, fill));
    Hdf5Checked(H5Pset_obj_track_times(creation, false));
    // Whole chunks pass the library's cache, of which thousands of data sets would each have one.
    const Hdf5Handle access(H5Pcreate(H5P_DATASET_ACCESS));
    Hdf5Checked(H5Pset_chunk_cache(access, 1, 0, H5D_CHUNK_CACHE_W0_DEFAULT));
    Set = Hdf5Handle(H5Dcreate_anon(place.File, type.Id, space, creation, access));
}

void ChunkedDataset::Write(std::uint64_t chunk, std::span<const std::uint8_t> bytes, std::uint64_t count) {
    SetCount(count);
    const std::span<const std::uint8_t> packed = Packer->Pack(bytes, Width);
    // The mask names the filters that a chunk did without.
    const std::uint32_t leftOut = packed.empty() ? (Width > 1 ? 3 : 1) : 0;
    const std::span<const std::uint8_t> written = packed.empty() ? bytes : packed;
    const hsize_t offset = chunk * ChunkValues;
    Hdf5Checked(H5Dwrite_chunk(Set, H5P_DEFAULT, leftOut, &offset, written.size(), written.data()));
}

void ChunkedDataset::SetCount(std::uint64_t count) {
    const hsize_t extent = count;
    Hdf5Checked(H5Dset_extent(Set, &extent));
}
