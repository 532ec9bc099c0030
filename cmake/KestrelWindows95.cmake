# kestrel_link_for_windows_95(LIBRARY): the library runs on Windows 95 and the machines of its time. It
# is compiled without exceptions, linked without the toolchain's runtime (see
# runtime/without_exceptions.h) and without startup code. Nothing has to be constructed when the
# library is loaded, so the system enters at DllMain. Flags that Windows 95 does not know are left out.
function(kestrel_link_for_windows_95 library)
  target_compile_options(${library} PRIVATE
    $<$<COMPILE_LANGUAGE:CXX>:-O2 -fno-exceptions -fno-rtti -fno-asynchronous-unwind-tables>)
  target_link_options(${library} PRIVATE
    -nostdlib
    -Wl,--entry,_DllMain@12
    -Wl,--major-os-version,4,--minor-os-version,0
    -Wl,--major-subsystem-version,4,--minor-subsystem-version,0
    -Wl,--disable-dynamicbase,--disable-nxcompat,--disable-long-section-names)
  target_link_libraries(${library} PRIVATE gcc msvcrt kernel32)
endfunction()
