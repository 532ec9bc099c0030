include("${CMAKE_CURRENT_LIST_DIR}/kestrel-targets.cmake")
