# Windows on 32-bit x86. The code of Kestrel runs from the Pentium on; the tool takes the later
# processors that the toolchain's own libraries are built for.
set(CMAKE_SYSTEM_PROCESSOR x86)
set(mingw_triple i686-w64-mingw32)
set(CMAKE_C_FLAGS_INIT -march=i586)
set(CMAKE_CXX_FLAGS_INIT -march=i586)
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")
