# How a kernel driver for Windows is built.

find_path(KESTREL_DDK ntddk.h
  PATHS ${CMAKE_C_IMPLICIT_INCLUDE_DIRECTORIES} PATH_SUFFIXES ddk
  NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)

# How everything in a driver is compiled. Windows does not save the vector registers for a driver, and
# only x64 has a use for the tables of frames.
add_library(kestrel_driver_compiler INTERFACE)
target_compile_options(kestrel_driver_compiler INTERFACE
  $<$<COMPILE_LANGUAGE:C>:-mgeneral-regs-only>)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  target_compile_options(kestrel_driver_compiler INTERFACE
    $<$<COMPILE_LANGUAGE:C>:-fno-asynchronous-unwind-tables>)
endif()

# kestrel_add_driver(TARGET NAME WINDOWS SOURCES...): NAME.sys, for the version WINDOWS of Windows NT
# and later.
function(kestrel_add_driver target name windows)
  set(driver_name "${name}")
  configure_file("${PROJECT_SOURCE_DIR}/drivers/petrel/petrel.rc.in" "${target}.rc" @ONLY)
  add_executable(${target} ${ARGN} "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
  set_target_properties(${target} PROPERTIES OUTPUT_NAME "${name}" SUFFIX .sys UNITY_BUILD OFF)
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/drivers/petrel")
  target_include_directories(${target} SYSTEM PRIVATE "${KESTREL_DDK}")
  target_link_libraries(${target} PRIVATE
    kestrel_driver_checks kestrel_driver_compiler kestrel_compiler ntoskrnl)

  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(entry _DriverEntry@8)
    # A flag that these systems do not know.
    target_link_options(${target} PRIVATE -Wl,--disable-nxcompat)
  else()
    set(entry DriverEntry)
  endif()
  target_link_options(${target} PRIVATE
    -nostdlib -s -Wl,--no-insert-timestamp
    "-Wl,--subsystem,native:${windows},--entry,${entry},--image-base,0x10000"
    -Wl,--enable-reloc-section,--disable-dynamicbase,--disable-long-section-names)
endfunction()
