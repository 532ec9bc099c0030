# GoogleTest as it is installed, which is for 64 bits; else from the sources that Debian installs
# with it, as few as there are.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  find_package(GTest REQUIRED)
else()
  find_path(KESTREL_GOOGLETEST googletest/src/gtest-all.cc
    PATHS /usr/src/googletest NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  find_package(Threads REQUIRED)
  set(googletest "${KESTREL_GOOGLETEST}/googletest")
  set(googlemock "${KESTREL_GOOGLETEST}/googlemock")
  add_library(kestrel_googletest STATIC EXCLUDE_FROM_ALL
    "${googletest}/src/gtest-all.cc"
    "${googlemock}/src/gmock-all.cc"
    "${googlemock}/src/gmock_main.cc")
  target_include_directories(kestrel_googletest SYSTEM PUBLIC
    "${googletest}/include" "${googlemock}/include" PRIVATE "${googletest}" "${googlemock}")
  target_compile_options(kestrel_googletest PRIVATE -w)
  target_link_libraries(kestrel_googletest PUBLIC Threads::Threads)
  add_library(GTest::gmock ALIAS kestrel_googletest)
  add_library(GTest::gmock_main ALIAS kestrel_googletest)
endif()
