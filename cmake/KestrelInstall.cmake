# What an installation has besides the library and the tool, on every system and in every package.

# The day of the release, which everything that is dated carries.
set(KESTREL_RELEASE_DATE 2026-11-25)

# For programs that use the library: find_package(kestrel) and pkg-config.
include(CMakePackageConfigHelpers)
set(kestrel_cmake_folder "${CMAKE_INSTALL_LIBDIR}/cmake/kestrel")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/kestrel-config-version.cmake"
  COMPATIBILITY SameMajorVersion)
install(EXPORT kestrel-targets NAMESPACE kestrel:: DESTINATION "${kestrel_cmake_folder}"
  COMPONENT libkestrel-dev)
install(FILES packaging/kestrel-config.cmake "${PROJECT_BINARY_DIR}/kestrel-config-version.cmake"
  DESTINATION "${kestrel_cmake_folder}" COMPONENT libkestrel-dev)
if(WIN32)
  return()
endif()

set(kestrel_pc_folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
# An absolute folder has no way to the prefix, so that pkg-config is told the prefix itself.
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

# Manual pages, compressed without the time at which that happens.
find_program(KESTREL_GZIP gzip REQUIRED)
function(kestrel_compress source target)
  add_custom_command(OUTPUT "${target}"
    COMMAND "${KESTREL_GZIP}" --best --no-name --stdout "${source}" > "${target}"
    DEPENDS "${source}")
  set_property(GLOBAL APPEND PROPERTY KESTREL_COMPRESSED "${target}")
endfunction()

foreach(section 1 3)
  set(page "${PROJECT_BINARY_DIR}/man/kestrel.${section}")
  configure_file(man/kestrel.${section}.in "${page}" @ONLY)
  kestrel_compress("${page}" "${page}.gz")
endforeach()
install(FILES "${PROJECT_BINARY_DIR}/man/kestrel.1.gz"
  DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT kestrel)
install(FILES "${PROJECT_BINARY_DIR}/man/kestrel.3.gz"
  DESTINATION "${CMAKE_INSTALL_MANDIR}/man3" COMPONENT libkestrel-dev)
foreach(function CloseSMBios GetSMBiosDate GetSMBiosVendor GetSMBiosVersion GetSMType0Obj OpenSMBios
    ReadSMObjects SMObjsToMifString SMObjsToString)
  set(link "${PROJECT_BINARY_DIR}/man/${function}.3.gz")
  file(CREATE_LINK kestrel.3.gz "${link}" SYMBOLIC)
  install(FILES "${link}" DESTINATION "${CMAKE_INSTALL_MANDIR}/man3" COMPONENT libkestrel-dev)
endforeach()

# Completion, where the packages of the three shells have it.
install(FILES completions/kestrel.bash RENAME kestrel
  DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT kestrel)
install(FILES completions/_kestrel
  DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions" COMPONENT kestrel)
install(FILES completions/kestrel.fish
  DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d" COMPONENT kestrel)

include(KestrelDebian)
get_property(compressed GLOBAL PROPERTY KESTREL_COMPRESSED)
add_custom_target(kestrel_documents ALL DEPENDS ${compressed})
