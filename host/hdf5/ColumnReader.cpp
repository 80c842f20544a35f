#include "host/hdf5/ColumnReader.h"

#include <algorithm>

#include "host/language/Phrase.h"

namespace kelvarin::hdf5 {

namespace {

// A foreign file may have chunks of any size.
constexpr hsize_t MostBlockValues = 64 << 10;

Hdf5Handle OpenDataset(hid_t group, const std::string& path) {
    // A block is a chunk, so that none is read twice.
    const Hdf5Handle access(H5Pcreate(H5P_DATASET_ACCESS));
    Hdf5Checked(H5Pset_chunk_cache(access, 1, 0, H5D_CHUNK_CACHE_W0_DEFAULT));
    return Hdf5Handle(H5Dopen2(group, path.c_str(), access));
}

}  // namespace

ColumnReader::ColumnReader(hid_t group, std::string path, const ElementType& type)
    : Group(group), Path(std::move(path)), Type(type) {
    const Hdf5Handle set = OpenDataset(Group, Path);
    const Hdf5Handle stored(H5Dget_type(set));
    const Hdf5Handle space(H5Dget_space(set));
    if (Hdf5Checked(H5Tequal(stored, Type.Id)) == 0 || H5Sget_simple_extent_ndims(space) != 1)
        throw Hdf5Error(Phrase("data set '{}' is of another type", Path));
    hsize_t count = 0;
    Hdf5Checked(H5Sget_simple_extent_dims(space, &count, nullptr));
    All = count;
    const Hdf5Handle creation(H5Dget_create_plist(set));
    hsize_t chunk = MostBlockValues;
    if (H5Pget_layout(creation) == H5D_CHUNKED) Hdf5Checked(H5Pget_chunk(creation, 1, &chunk));
    BlockValues = static_cast<std::size_t>(std::min(chunk, MostBlockValues));
}

std::span<const std::uint8_t> ColumnReader::Next(std::size_t most) {
    if (At == Block.size()) ReadBlock();
    const std::size_t size = std::min(most * Type.Width, Block.size() - At);
    At += size;
    return {Block.data() + At - size, size};
}

void ColumnReader::ReadBlock() {
    const hsize_t begin = Read;
    const hsize_t count = std::min<std::uint64_t>(BlockValues, All - Read);
    Block.resize(static_cast<std::size_t>(count) * Type.Width);
    At = 0;
    if (count == 0) return;
    const Hdf5Handle set = OpenDataset(Group, Path);
    const Hdf5Handle file(H5Dget_space(set));
    Hdf5Checked(H5Sselect_hyperslab(file, H5S_SELECT_SET, &begin, nullptr, &count, nullptr));
    const Hdf5Handle memory(H5Screate_simple(1, &count, nullptr));
    Hdf5Checked(H5Dread(set, Type.Id, memory, file, H5P_DEFAULT, Block.data()));
    Read += count;
}

}  // namespace kelvarin::hdf5
