# The names of the nine exports, as kestrel.def lists them.
file(STRINGS "${PROJECT_SOURCE_DIR}/src/api/kestrel.def" KESTREL_EXPORTS REGEX "@")
list(TRANSFORM KESTREL_EXPORTS REPLACE " *([A-Za-z0-9]+) @.*" "\\1")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  "${PROJECT_SOURCE_DIR}/src/api/kestrel.def")
