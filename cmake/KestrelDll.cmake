# The library as Kestrel.dll: what kestrel_library has on Windows alone.

configure_file(api/kestrel.rc.in kestrel.rc @ONLY)
target_sources(kestrel_library PRIVATE
  api/module.cpp
  platform/extension_module.cpp
  api/kestrel.def
  "${CMAKE_CURRENT_BINARY_DIR}/kestrel.rc")
set_target_properties(kestrel_library PROPERTIES PREFIX "" OUTPUT_NAME Kestrel)

# The same sources give the same file, whenever they are built.
target_link_options(kestrel_library PRIVATE -s -Wl,--no-insert-timestamp)

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  # For Windows 95 and the machines it runs on: compiled without exceptions, linked without the
  # toolchain's runtime (see runtime/without_exceptions.h) and without startup code. Nothing has to
  # be constructed when the library is loaded, so the system enters at DllMain. Flags that Windows 95
  # does not know are left out.
  target_sources(kestrel_library PRIVATE ${base_sources} ${core_sources} runtime/without_exceptions.cpp)
  target_include_directories(kestrel_library PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
  target_compile_options(kestrel_library PRIVATE
    $<$<COMPILE_LANGUAGE:CXX>:-O2 -fno-exceptions -fno-rtti -fno-asynchronous-unwind-tables>)
  target_link_options(kestrel_library PRIVATE
    -nostdlib
    -Wl,--entry,_DllMain@12
    -Wl,--major-os-version,4,--minor-os-version,0
    -Wl,--major-subsystem-version,4,--minor-subsystem-version,0
    -Wl,--disable-dynamicbase,--disable-nxcompat,--disable-long-section-names)
  # In place of kestrel_core and what it links, which are compiled with exceptions for the tool.
  set_target_properties(kestrel_library PROPERTIES LINK_LIBRARIES
    "kestrel_compiler;gcc;msvcrt;kernel32")
else()
  target_link_options(kestrel_library PRIVATE -static)
endif()
