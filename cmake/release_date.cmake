# Read by CPack, before it installs the files of a package and again after that: gives the files, and
# what CPack writes itself, the day of the release. In the locale C, CPack finds no file below a folder
# whose name has other letters than those of ASCII.
set(ENV{LC_ALL} C.UTF-8)
execute_process(COMMAND date --utc --date "${CPACK_KESTREL_RELEASE_DATE}" +%s
  OUTPUT_VARIABLE seconds OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(ENV{SOURCE_DATE_EPOCH} "${seconds}")
if(CPACK_TEMPORARY_DIRECTORY AND EXISTS "${CPACK_TEMPORARY_DIRECTORY}")
  execute_process(COMMAND find "${CPACK_TEMPORARY_DIRECTORY}" -exec
      touch --no-dereference --date "@${seconds}" "{}" +
    COMMAND_ERROR_IS_FATAL ANY)
endif()
