# For programs that use the installed library: find_package(kestrel) and pkg-config.

include(CMakePackageConfigHelpers)
set(kestrel_cmake_folder "${CMAKE_INSTALL_LIBDIR}/cmake/kestrel")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/kestrel-config-version.cmake"
  COMPATIBILITY SameMajorVersion)
install(EXPORT kestrel-targets NAMESPACE kestrel:: DESTINATION "${kestrel_cmake_folder}"
  COMPONENT libkestrel-dev)
install(FILES packaging/kestrel-config.cmake "${PROJECT_BINARY_DIR}/kestrel-config-version.cmake"
  DESTINATION "${kestrel_cmake_folder}" COMPONENT libkestrel-dev)

if(NOT WIN32)
  set(kestrel_pc_folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
  # An absolute folder has no way to the prefix, so pkg-config is given the prefix itself.
  if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    set(KESTREL_PREFIX "${CMAKE_INSTALL_PREFIX}")
  else()
    file(RELATIVE_PATH to_prefix "/${kestrel_pc_folder}" /)
    set(KESTREL_PREFIX "\${pcfiledir}/${to_prefix}")
  endif()
  string(REGEX REPLACE "/$" "" KESTREL_PREFIX "${KESTREL_PREFIX}")
  configure_file(packaging/kestrel.pc.in kestrel.pc @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/kestrel.pc" DESTINATION "${kestrel_pc_folder}"
    COMPONENT libkestrel-dev)
endif()
