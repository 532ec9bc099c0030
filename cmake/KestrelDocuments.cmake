# Manual pages and shell completion. All of it is made when the folder is configured, so that an
# installation has it whatever was built.

find_program(KESTREL_GZIP gzip REQUIRED)
# Compresses without the time at which that happens: the same sources give the same file.
function(kestrel_compress source target)
  execute_process(COMMAND "${KESTREL_GZIP}" --best --no-name --stdout "${source}"
    OUTPUT_FILE "${target}" COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY "${PROJECT_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source}")
endfunction()

set(man "${PROJECT_BINARY_DIR}/man")
foreach(section 1 3)
  configure_file(man/kestrel.${section}.in "${man}/kestrel.${section}" @ONLY)
  kestrel_compress("${man}/kestrel.${section}" "${man}/kestrel.${section}.gz")
endforeach()
install(FILES "${man}/kestrel.3.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man3"
  COMPONENT libkestrel-dev)
foreach(function IN LISTS KESTREL_EXPORTS)
  file(CREATE_LINK kestrel.3.gz "${man}/${function}.3.gz" SYMBOLIC)
  install(FILES "${man}/${function}.3.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man3"
    COMPONENT libkestrel-dev)
endforeach()

if(KESTREL_BUILD_TOOL)
  install(FILES "${man}/kestrel.1.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT kestrel)
  install(FILES completions/kestrel.bash RENAME kestrel
    DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT kestrel)
  install(FILES completions/kestrel.fish
    DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d" COMPONENT kestrel)
  # Where zsh looks below /usr/local; the package has another place for it.
  install(FILES completions/_kestrel
    DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/site-functions" COMPONENT without_package)
endif()
