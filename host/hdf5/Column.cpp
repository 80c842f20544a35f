#include "host/hdf5/Column.h"

#include <algorithm>
#include <cstring>

#include "contract/DataStore.h"
#include "host/language/Phrase.h"

namespace kelvarin::hdf5 {
namespace {
// A chunk of texts is then as large as one of numbers.
constexpr std::size_t UnitsPerText = 4;

// A foreign file may have larger chunks, of which the library holds a whole one.
constexpr hsize_t MostBlockValues = 64 << 10;
constexpr hsize_t MostChunkBytes = 256 << 20;

// Whole chunks are written past the library's cache, and blocks to read are chunks, so that none is read
// twice.
Hdf5Handle OpenWithoutCache(hid_t group, const std::string& path) {
    const Hdf5Handle access(H5Pcreate(H5P_DATASET_ACCESS));
    Hdf5Checked(H5Pset_chunk_cache(access, 1, 0, H5D_CHUNK_CACHE_W0_DEFAULT));
    return Hdf5Handle(H5Dopen2(group, path.c_str(), access));
}

// The elements of a chunk, or those to read at a time where there are no chunks. Raises Hdf5Error for a data
// set whose values are in other files, or whose chunks are too large for memory.
hsize_t ChunkOf(hid_t set, const std::string& path, std::size_t width) {
    const Hdf5Handle creation(H5Dget_create_plist(set));
    const H5D_layout_t layout = H5Pget_layout(creation);
    if (layout == H5D_VIRTUAL || Hdf5Checked(H5Pget_external_count(creation)) > 0)
        throw Hdf5Error(Phrase("data set '{}' has its values in other files, which are not read", path));
    hsize_t chunk = MostBlockValues;
    if (layout == H5D_CHUNKED) Hdf5Checked(H5Pget_chunk(creation, 1, &chunk));
    if (chunk > MostChunkBytes / width)
        throw Hdf5Error(Phrase("data set '{}' has chunks too large to read", path));
    return chunk;
}

void SetExtent(hid_t set, std::uint64_t count) {
    const hsize_t extent = count;
    Hdf5Checked(H5Dset_extent(set, &extent));
}
}  // namespace

hid_t ElementTypeOf(std::uint32_t type) {
    switch (type) {
        case KelvarinBool:
            return H5T_NATIVE_UINT8;
        case KelvarinInt64:
            return H5T_NATIVE_INT64;
        case KelvarinDouble:
            return H5T_NATIVE_DOUBLE;
        default:
            return H5T_NATIVE_UINT16;
    }
}

ColumnWriter::ColumnWriter(DatasetPlace& place, hid_t type, EContent content)
    : Place(place), Type(type), Width(H5Tget_size(type)), Content(content) {}

void ColumnWriter::Append(const void* elements, std::size_t count) {
    // Nearly all calls for texts, which bring a few elements each.
    if (count < ChunkValues - Used && (elements == nullptr || Chunk != nullptr)) {
        if (elements != nullptr) std::memcpy(Chunk.get() + Used * Width, elements, count * Width);
        Used += count;
        return;
    }
    if (ChunkValues == 0) ChunkValues = Place.ChunkValues * (Content == ValuesOfTexts ? UnitsPerText : 1);
    const auto* next = static_cast<const std::uint8_t*>(elements);
    while (count != 0) {
        const std::size_t taken = std::min(count, ChunkValues - Used);
        if (next != nullptr) {
            if (Chunk == nullptr) {
                Chunk = std::make_unique_for_overwrite<std::uint8_t[]>(ChunkValues * Width);
                if (Content == Flags) std::memset(Chunk.get(), 1, ChunkValues);
            }
            std::memcpy(Chunk.get() + Used * Width, next, taken * Width);
            next += taken * Width;
        }
        Used += taken;
        count -= taken;
        if (Used == ChunkValues) Flush();
    }
}

void ColumnWriter::Flush() {
    if (Content != Flags) {
        std::memset(Chunk.get() + Used * Width, 0, (ChunkValues - Used) * Width);
        WriteChunk();
    } else if (Chunk != nullptr && std::memchr(Chunk.get(), 0, Used) != nullptr) {
        WriteChunk();
        std::memset(Chunk.get(), 1, ChunkValues);
    }
    ++Full;
    Used = 0;
}

void ColumnWriter::WriteChunk() {
    if (Name.empty()) Create();
    const Hdf5Handle set = OpenWithoutCache(Place.Group, Name);
    SetExtent(set, Count());
    const std::span<const std::uint8_t> bytes(Chunk.get(), ChunkValues * Width);
    const std::span<const std::uint8_t> packed = Place.Packer.Pack(bytes, Width);
    // The mask names the filters that a chunk did without.
    const std::uint32_t leftOut = packed.empty() ? (Width > 1 ? 3 : 1) : 0;
    const std::span<const std::uint8_t> written = packed.empty() ? bytes : packed;
    const hsize_t offset = Full * ChunkValues;
    Hdf5Checked(H5Dwrite_chunk(set, H5P_DEFAULT, leftOut, &offset, written.size(), written.data()));
}

void ColumnWriter::Create() {
    const hsize_t count = 0;
    const hsize_t most = H5S_UNLIMITED;
    const hsize_t chunk = ChunkValues;
    const Hdf5Handle space(H5Screate_simple(1, &count, &most));
    const Hdf5Handle creation(H5Pcreate(H5P_DATASET_CREATE));
    Hdf5Checked(H5Pset_chunk(creation, 1, &chunk));
    if (Width > 1) Hdf5Checked(H5Pset_shuffle(creation));
    constexpr unsigned DeflateLevel = 1;  // readers take no notice of it
    Hdf5Checked(H5Pset_deflate(creation, DeflateLevel));
    constexpr std::uint8_t HasValue = 1;
    if (Content == Flags) Hdf5Checked(H5Pset_fill_value(creation, Type, &HasValue));
    Hdf5Checked(H5Pset_obj_track_times(creation, false));
    Name = std::to_string(Place.Made++);
    // Not without a name: the library loses such data sets when it has many.
    const Hdf5Handle set(
        H5Dcreate2(Place.Group, Name.c_str(), Type, space, H5P_DEFAULT, creation, H5P_DEFAULT));
}

void ColumnWriter::Finish(hid_t group, const char* name) {
    const std::uint64_t count = Count();
    if (Full == 0) ChunkValues = std::max<std::size_t>(Used, 1);
    if (Used != 0) Flush();
    if (Name.empty() && Content == Flags) return;
    if (Name.empty()) Create();
    if (Content == Flags) SetExtent(OpenWithoutCache(Place.Group, Name), count);
    Hdf5Checked(H5Lmove(Place.Group, Name.c_str(), group, name, H5P_DEFAULT, H5P_DEFAULT));
}

ColumnReader::ColumnReader(hid_t group, std::string path, hid_t type)
    : Group(group), Path(std::move(path)), Type(type), Width(H5Tget_size(type)) {
    RequireMember(Group, Path);
    const Hdf5Handle set = OpenWithoutCache(Group, Path);
    BlockValues = static_cast<std::size_t>(std::min(ChunkOf(set, Path, Width), MostBlockValues));
    const Hdf5Handle stored(H5Dget_type(set));
    const Hdf5Handle space(H5Dget_space(set));
    if (Hdf5Checked(H5Tequal(stored, Type)) == 0 || H5Sget_simple_extent_ndims(space) != 1)
        throw Hdf5Error(Phrase("data set '{}' is of another type", Path));
    hsize_t count = 0;
    Hdf5Checked(H5Sget_simple_extent_dims(space, &count, nullptr));
    All = count;
}

std::span<const std::uint8_t> ColumnReader::Next(std::size_t most) {
    if (At == Block.size()) ReadBlock();
    const std::size_t size = std::min(most * Width, Block.size() - At);
    At += size;
    return {Block.data() + At - size, size};
}

std::vector<std::uint8_t> ColumnReader::Take(std::size_t count) {
    std::vector<std::uint8_t> all;
    while (all.size() != count * Width) {
        const std::span<const std::uint8_t> part = Next(count - all.size() / Width);
        if (part.empty()) throw Hdf5Error(Phrase("its data sets are of different lengths"));
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

void ColumnReader::ReadBlock() {
    const hsize_t begin = Read;
    const hsize_t count = std::min<std::uint64_t>(BlockValues, All - Read);
    Block.resize(static_cast<std::size_t>(count) * Width);
    At = 0;
    if (count == 0) return;
    const Hdf5Handle set = OpenWithoutCache(Group, Path);
    const Hdf5Handle file(H5Dget_space(set));
    Hdf5Checked(H5Sselect_hyperslab(file, H5S_SELECT_SET, &begin, nullptr, &count, nullptr));
    const Hdf5Handle memory(H5Screate_simple(1, &count, nullptr));
    Hdf5Checked(H5Dread(set, Type, memory, file, H5P_DEFAULT, Block.data()));
    Read += count;
}
}  // namespace kelvarin::hdf5
