# The one place that says how Kestrel's code is compiled; every target links kestrel_compiler.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_C_STANDARD_REQUIRED ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
if(PROJECT_IS_TOP_LEVEL)
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
endif()

add_library(kestrel_compiler INTERFACE)
target_compile_options(kestrel_compiler INTERFACE
  "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=" "-ffile-prefix-map=${PROJECT_BINARY_DIR}/="
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  $<$<BOOL:${KESTREL_WARNINGS_AS_ERRORS}>:-Werror>)

if(KESTREL_SANITIZERS)
  set(sanitize "-fsanitize=${KESTREL_SANITIZERS}" -fno-sanitize-recover=all -fno-omit-frame-pointer)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    list(APPEND sanitize "-fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/sanitizers_ignore.txt")
  endif()
  target_compile_options(kestrel_compiler INTERFACE ${sanitize})
  target_link_options(kestrel_compiler INTERFACE ${sanitize})
  # For tests: with its own settings the address sanitizer takes 1.4 times as long, in fuzzing twice. With
  # these, a report has only the innermost frame of where memory was allocated.
  set(KESTREL_SANITIZER_SETTINGS "ASAN_OPTIONS=malloc_context_size=1:quarantine_size_mb=8")
endif()
