# The flags of every target of this project.
add_library(kelvarin-flags INTERFACE)
if(KELVARIN_PLAIN)
  set(SIMD plain)
else()
  set(SIMD sse2)
endif()
target_include_directories(kelvarin-flags INTERFACE
  ${PROJECT_SOURCE_DIR}/src
  # The headers simd/*.h, which have a body per kind of processor.
  ${PROJECT_SOURCE_DIR}/src/platform/${SIMD})
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

if(WIN32)
  # The oldest Windows whose functions are used. Windows.h's short names min and max would break the standard's.
  target_compile_definitions(kelvarin-flags INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN WINVER=0x0A00 _WIN32_WINNT=0x0A00)
  # Text is cast at the border of the API; the standard doesn't promise that its two types may alias.
  target_compile_options(kelvarin-flags INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fno-strict-aliasing>)
  # An exception thrown in one library and caught in the other needs one runtime for both: it lies beside them.
  foreach(RUNTIME libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${RUNTIME}
      OUTPUT_VARIABLE RUNTIME_PATH OUTPUT_STRIP_TRAILING_WHITESPACE)
    file(COPY ${RUNTIME_PATH} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    install(FILES ${RUNTIME_PATH} DESTINATION .)
  endforeach()
endif()

# What fuzz targets drive reports its branches to them.
function(report_branches TARGET)
  if(KELVARIN_FUZZ)
    target_compile_options(${TARGET} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
endfunction()

# With -DCMAKE_UNITY_BUILD=ON the files of a folder are compiled as one, which takes half the time or less. Further
# arguments are files that are left apart: they use a name that another file of the folder has in its unnamed namespace too.
function(unite_folders TARGET)
  get_target_property(SOURCES ${TARGET} SOURCES)
  foreach(SOURCE ${SOURCES})
    get_filename_component(FOLDER ${SOURCE} DIRECTORY)
    file(RELATIVE_PATH FOLDER ${PROJECT_SOURCE_DIR} ${FOLDER})
    string(MAKE_C_IDENTIFIER "${FOLDER}" GROUP)
    set_source_files_properties(${SOURCE} PROPERTIES UNITY_GROUP "${GROUP}")
  endforeach()
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  set_target_properties(${TARGET} PROPERTIES UNITY_BUILD_MODE GROUP)
endfunction()
