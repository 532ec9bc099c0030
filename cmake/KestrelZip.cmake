# What users on Windows get: one zip, to be unpacked anywhere.
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(width x86)
  set(KESTREL_ZIP_FOR "32-bit x86")
else()
  set(width x64)
  set(KESTREL_ZIP_FOR x64)
endif()
configure_file(packaging/windows/README.txt.in README.txt @ONLY NEWLINE_STYLE WIN32)
configure_file(packaging/copyright copyright.txt @ONLY NEWLINE_STYLE WIN32)
install(FILES "${PROJECT_BINARY_DIR}/README.txt" "${PROJECT_BINARY_DIR}/copyright.txt"
  DESTINATION .)
# Parts of the toolchain's runtime are linked in, and want their notices to be there.
install(FILES /usr/share/doc/mingw-w64-common/copyright DESTINATION .
  RENAME copyright-mingw-w64.txt)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME "kestrel-${PROJECT_VERSION}-windows-${width}")
set(CPACK_VERBATIM_VARIABLES ON)
