# The package target: a zip for Windows, else packages for Debian.

# The same sources give the same packages, whenever they are built.
set(CPACK_PROJECT_CONFIG_FILE "${PROJECT_SOURCE_DIR}/cmake/release_date.cmake")
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/release_date.cmake")
set(CPACK_KESTREL_RELEASE_DATE "${KESTREL_RELEASE_DATE}")
if(WIN32)
  include(KestrelZip)
else()
  include(KestrelDebian)
endif()
include(CPack)
