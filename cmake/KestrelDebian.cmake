# Packages for Debian: libkestrel1, libkestrel-dev and kestrel, by the package target.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "Kestrel maintainers <maintainers@kestrel.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_COMPONENTS_ALL libkestrel1 libkestrel-dev kestrel)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

set(CPACK_DEBIAN_LIBKESTREL1_PACKAGE_NAME libkestrel1)
set(CPACK_DEBIAN_LIBKESTREL1_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBKESTREL1_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_LIBKESTREL1_PACKAGE_MULTIARCH same)
# The trigger is all that the library needs. CPack adds scripts that run ldconfig, too, unless others
# are named; those named here do not exist, so the package has none.
set(debian "${PROJECT_SOURCE_DIR}/packaging/debian")
set(CPACK_DEBIAN_LIBKESTREL1_PACKAGE_CONTROL_EXTRA
  "${debian}/symbols;${debian}/triggers;${debian}/none/postinst;${debian}/none/postrm")
set(CPACK_DEBIAN_LIBKESTREL1_DESCRIPTION "library that reads the SMBIOS tables of a PC as text
Kestrel reads the SMBIOS structure table in which the firmware of a PC
describes the machine, and renders it as a report for people or as a
document in the DMTF Management Information Format.
.
This package has the shared library.")

set(CPACK_DEBIAN_LIBKESTREL-DEV_PACKAGE_NAME libkestrel-dev)
set(CPACK_DEBIAN_LIBKESTREL-DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_LIBKESTREL-DEV_PACKAGE_MULTIARCH same)
set(CPACK_DEBIAN_LIBKESTREL-DEV_PACKAGE_DEPENDS "libkestrel1 (= ${PROJECT_VERSION}-1)")
set(CPACK_DEBIAN_LIBKESTREL-DEV_DESCRIPTION "library that reads the SMBIOS tables of a PC - development files
Kestrel reads the SMBIOS structure table in which the firmware of a PC
describes the machine, and renders it as a report for people or as a
document in the DMTF Management Information Format.
.
This package has the header, the files for pkg-config and CMake, and the
manual page of the library.")

set(CPACK_DEBIAN_KESTREL_PACKAGE_NAME kestrel)
set(CPACK_DEBIAN_KESTREL_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_KESTREL_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_KESTREL_DESCRIPTION "shows what the SMBIOS tables of a PC say
The tool kestrel shows the SMBIOS structure table of this machine, or of a
saved image: as a report, as JSON with every field that the standard knows,
or as a document in the DMTF Management Information Format. It also checks
a table for faults, and saves the tables of a machine.")

# Each package has a copyright file and the change logs, Debian's and the project's, and keeps the
# completion for zsh where Debian's packages do. None of this belongs to other installations.
execute_process(COMMAND date --utc --rfc-email --date "${KESTREL_RELEASE_DATE}"
  OUTPUT_VARIABLE KESTREL_DEBIAN_DATE OUTPUT_STRIP_TRAILING_WHITESPACE
  COMMAND_ERROR_IS_FATAL ANY)
set(made "${PROJECT_BINARY_DIR}/debian")
configure_file(packaging/debian/changelog.in "${made}/changelog.Debian" @ONLY)
kestrel_compress("${made}/changelog.Debian" "${made}/changelog.Debian.gz")
kestrel_compress("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${made}/changelog.gz")
foreach(package ${CPACK_COMPONENTS_ALL})
  install(FILES packaging/copyright "${made}/changelog.gz" "${made}/changelog.Debian.gz"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${package} EXCLUDE_FROM_ALL)
endforeach()
install(FILES completions/_kestrel
  DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions" COMPONENT kestrel EXCLUDE_FROM_ALL)
