# The flags of every target of this project.
add_library(kelvarin-flags INTERFACE)
target_include_directories(kelvarin-flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(kelvarin-flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  # A fused multiply-add rounds once where the time stamps need two roundings.
  -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 warns of overlapping copies inside its own std::string operator+ (its bug 105651).
  target_compile_options(kelvarin-flags INTERFACE -Wno-restrict)
endif()
if(KELVARIN_WERROR)
  target_compile_options(kelvarin-flags INTERFACE -Werror)
endif()
if(KELVARIN_SANITIZE)
  # The program reads fields of the filter, a class of the module, whose type information it can't link: no check
  # of dynamic types.
  target_compile_options(kelvarin-flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kelvarin-flags INTERFACE -fsanitize=address,undefined)
endif()

if(UNIX AND NOT KELVARIN_SANITIZE)
  # The module parses files of strangers inside a host's process: an overrun that slips through ends it, and
  # nothing that a write could redirect stays writable.
  include(CheckPIESupported)
  check_pie_supported()
  target_compile_options(kelvarin-flags INTERFACE $<$<CONFIG:Release>:
    -fstack-protector-strong -fstack-clash-protection -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
  target_link_options(kelvarin-flags INTERFACE $<$<CONFIG:Release>:
    LINKER:-z,relro,-z,now,-z,noexecstack>)
endif()
