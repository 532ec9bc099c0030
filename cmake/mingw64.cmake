# Windows on x64.
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(mingw_triple x86_64-w64-mingw32)
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")
