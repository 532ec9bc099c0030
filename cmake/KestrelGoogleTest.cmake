# GoogleTest as it is installed, where that is for the system that is built for; elsewhere from the
# sources that Debian installs with it.
if(CMAKE_CROSSCOMPILING OR NOT CMAKE_SIZEOF_VOID_P EQUAL 8)
  find_path(KESTREL_GOOGLETEST CMakeLists.txt
    PATHS /usr/src/googletest NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  add_subdirectory("${KESTREL_GOOGLETEST}" "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
  if(WIN32)
    target_compile_definitions(gtest PUBLIC GTEST_HAS_NOTIFICATION_=1)
    target_compile_options(gtest PUBLIC
      -include "${PROJECT_SOURCE_DIR}/tests/windows/googletest_notification.h")
  endif()
else()
  find_package(GTest REQUIRED)
endif()
