# What `cmake --install` and the Debian package put where: the program, the support library that hosts link, the
# module with its languages in the plug-in folder, the headers of the contract with the host.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(PLUGIN_DIR ${CMAKE_INSTALL_LIBDIR}/kelvarin/plugins)
set(PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/kelvarin)

# Relative, so that an installed tree can be moved.
file(RELATIVE_PATH LIBRARIES_OF_BIN /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
set_target_properties(kelvarin-import PROPERTIES INSTALL_RPATH "$ORIGIN;$ORIGIN/${LIBRARIES_OF_BIN}")
set_target_properties(csv-import csv-import-en PROPERTIES INSTALL_RPATH "$ORIGIN;$ORIGIN/../..")

install(TARGETS kelvarin-import)
install(TARGETS kelvarin-support EXPORT kelvarin-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kelvarin)
install(TARGETS csv-import csv-import-en LIBRARY DESTINATION ${PLUGIN_DIR})

install(DIRECTORY src/contract DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kelvarin FILES_MATCHING PATTERN *.h)
install(DIRECTORY src/platform/framework DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kelvarin/platform
  FILES_MATCHING PATTERN *.h PATTERN portable EXCLUDE PATTERN win32 EXCLUDE)
install(EXPORT kelvarin-targets NAMESPACE kelvarin:: DESTINATION ${PACKAGE_DIR})
configure_package_config_file(cmake/kelvarin-config.cmake.in ${CMAKE_BINARY_DIR}/kelvarin-config.cmake
  INSTALL_DESTINATION ${PACKAGE_DIR} PATH_VARS PLUGIN_DIR)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/kelvarin-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/kelvarin-config.cmake ${CMAKE_BINARY_DIR}/kelvarin-config-version.cmake
  DESTINATION ${PACKAGE_DIR})

# The program writes these itself, so that they can't lag behind its options.
set(PAGES ${CMAKE_BINARY_DIR}/pages)
file(MAKE_DIRECTORY ${PAGES})
list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " EMULATOR)
function(add_page NAME WORDS)
  add_custom_command(OUTPUT ${PAGES}/${NAME} DEPENDS kelvarin-import VERBATIM
    COMMAND sh -c "LC_ALL=C ${EMULATOR} '$<TARGET_FILE:kelvarin-import>' ${WORDS} >'${PAGES}/${NAME}'")
  set_property(GLOBAL APPEND PROPERTY PAGE_FILES ${PAGES}/${NAME})
endfunction()
add_page(kelvarin-import.1 manual)
add_page(kelvarin-import "completion bash")
add_page(_kelvarin-import "completion zsh")
add_page(kelvarin-import.fish "completion fish")
get_property(PAGE_FILES GLOBAL PROPERTY PAGE_FILES)
add_custom_target(pages ALL DEPENDS ${PAGE_FILES})
install(FILES ${PAGES}/kelvarin-import.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PAGES}/kelvarin-import DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${PAGES}/_kelvarin-import DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${PAGES}/kelvarin-import.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

set(DOCUMENTS ${CMAKE_INSTALL_DATADIR}/doc/kelvarin-csv-import)
install(FILES README.md CHANGELOG.md DESTINATION ${DOCUMENTS})
install(FILES LICENSE DESTINATION ${DOCUMENTS} RENAME copyright)
install(DIRECTORY examples DESTINATION ${DOCUMENTS})

if(KELVARIN_VIEW)
  set_target_properties(kelvarin-view PROPERTIES INSTALL_RPATH "$ORIGIN;$ORIGIN/${LIBRARIES_OF_BIN}")
  install(TARGETS kelvarin-view COMPONENT view)
  install(TARGETS kelvarin-dialog LIBRARY DESTINATION ${PLUGIN_DIR} COMPONENT view)
  install(FILES view/desktop/kelvarin-view.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT view)
  install(FILES view/desktop/kelvarin-view.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT view)
  install(FILES view/desktop/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kelvarin-view COMPONENT view)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The kelvarin developers <developers@kelvarin.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Import of measurement text files (CSV) for kelvarin")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
# Packages beside that of the program, which stays as it is, under the same name.
if(KELVARIN_PYTHON OR KELVARIN_VIEW)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_COMPONENTS_ALL Unspecified)
  set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME ${CMAKE_PROJECT_NAME})
endif()
if(KELVARIN_PYTHON)
  list(APPEND CPACK_COMPONENTS_ALL python)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-kelvarin)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
  set(CPACK_COMPONENT_PYTHON_DESCRIPTION "Import of measurement text files (CSV) from Python")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "kelvarin-csv-import (= ${PROJECT_VERSION}), python3-numpy, \
python3 (>= ${Python_VERSION_MAJOR}.${Python_VERSION_MINOR}), python3 (<< ${Python_VERSION_MAJOR}.${Python_NEXT_MINOR})")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-pandas, python3-xarray, python3-distributed, python3-tqdm")
endif()
if(KELVARIN_VIEW)
  list(APPEND CPACK_COMPONENTS_ALL view)
  set(CPACK_DEBIAN_VIEW_PACKAGE_NAME kelvarin-view)
  set(CPACK_DEBIAN_VIEW_PACKAGE_SECTION science)
  set(CPACK_COMPONENT_VIEW_DESCRIPTION "Viewer of measurement text files (CSV), and the settings dialog of the import")
  set(CPACK_DEBIAN_VIEW_PACKAGE_DEPENDS "kelvarin-csv-import (= ${PROJECT_VERSION})")
  # Qt's own texts in the user's language: 13 MB, of which a desktop may have better use.
  set(CPACK_DEBIAN_VIEW_PACKAGE_RECOMMENDS qt6-translations-l10n)
endif()
include(CPack)
