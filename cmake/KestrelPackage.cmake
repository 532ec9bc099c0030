# What users on Windows get: one zip, to be unpacked anywhere.
install(FILES README.md DESTINATION .)

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(width x86)
else()
  set(width x64)
endif()
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME "kestrel-${PROJECT_VERSION}-windows-${width}")
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
