#include "host/hdf5/Attributes.h"

namespace kelvarin::hdf5 {

namespace {

Hdf5Handle TextType() {
    Hdf5Handle type(H5Tcopy(H5T_C_S1));
    Hdf5Checked(H5Tset_size(type, H5T_VARIABLE));
    Hdf5Checked(H5Tset_cset(type, H5T_CSET_UTF8));
    return type;
}

void Write(hid_t object, const char* name, hid_t type, const void* value) {
    const Hdf5Handle space(H5Screate(H5S_SCALAR));
    Hdf5Handle attribute(H5Acreate2(object, name, type, space, H5P_DEFAULT, H5P_DEFAULT));
    Hdf5Checked(H5Awrite(attribute, type, value));
}

}  // namespace

void WriteAttribute(hid_t object, const char* name, const std::string& text) {
    const char* const characters = text.c_str();
    Write(object, name, TextType(), &characters);
}

void WriteAttribute(hid_t object, const char* name, std::int64_t number) {
    Write(object, name, H5T_NATIVE_INT64, &number);
}

std::string ReadTextAttribute(hid_t object, const char* name) {
    const Hdf5Handle attribute(H5Aopen(object, name, H5P_DEFAULT));
    const Hdf5Handle stored(H5Aget_type(attribute));
    if (H5Tget_class(stored) != H5T_STRING || Hdf5Checked(H5Tis_variable_str(stored)) == 0)
        throw Hdf5Error(std::string("attribute ") + name + " is no text of variable length");
    const Hdf5Handle space(H5Aget_space(attribute));
    if (Hdf5Checked(H5Sget_simple_extent_npoints(space)) != 1)
        throw Hdf5Error(std::string("attribute ") + name + " is no single text");
    char* characters = nullptr;
    Hdf5Checked(H5Aread(attribute, TextType(), &characters));
    const std::string text = characters == nullptr ? "" : characters;
    H5free_memory(characters);
    return text;
}

std::int64_t ReadNumberAttribute(hid_t object, const char* name) {
    const Hdf5Handle attribute(H5Aopen(object, name, H5P_DEFAULT));
    const Hdf5Handle space(H5Aget_space(attribute));
    if (Hdf5Checked(H5Sget_simple_extent_npoints(space)) != 1)
        throw Hdf5Error(std::string("attribute ") + name + " is no single number");
    std::int64_t number = 0;
    Hdf5Checked(H5Aread(attribute, H5T_NATIVE_INT64, &number));
    return number;
}

bool HasAttribute(hid_t object, const char* name) {
    return Hdf5Checked(H5Aexists(object, name)) > 0;
}

}  // namespace kelvarin::hdf5
