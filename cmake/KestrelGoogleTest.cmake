# GoogleTest as it is installed, which is for 64 bits; else from the sources that Debian installs
# with it.
if(NOT CMAKE_SIZEOF_VOID_P EQUAL 8)
  find_path(KESTREL_GOOGLETEST CMakeLists.txt
    PATHS /usr/src/googletest NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  add_subdirectory("${KESTREL_GOOGLETEST}" "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
else()
  find_package(GTest REQUIRED)
endif()
