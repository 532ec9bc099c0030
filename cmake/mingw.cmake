# What the MinGW-w64 toolchains of both widths have in common.
set(CMAKE_SYSTEM_NAME Windows)

# Of the two thread models the one with Windows' own threads is preferred: the other brings a
# library that needs a later Windows.
find_program(CMAKE_C_COMPILER NAMES ${mingw_triple}-gcc-win32 ${mingw_triple}-gcc REQUIRED)
find_program(CMAKE_CXX_COMPILER NAMES ${mingw_triple}-g++-win32 ${mingw_triple}-g++ REQUIRED)
set(CMAKE_RC_COMPILER ${mingw_triple}-windres)

# Programs run here; everything else is for Windows.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
