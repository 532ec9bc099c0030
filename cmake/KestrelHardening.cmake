# What Debian compiles and links its own packages with, and binding at the start: for the code that is
# shipped, from the folder on that includes this. Other projects and those who build packages of
# another kind bring their own flags.
if(PROJECT_IS_TOP_LEVEL AND NOT WIN32 AND NOT KESTREL_SANITIZERS)
  add_compile_options($<$<CONFIG:Release>:-fstack-protector-strong>
    $<$<CONFIG:Release>:-U_FORTIFY_SOURCE> $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
  add_link_options($<$<CONFIG:Release>:-Wl,-z,relro,-z,now>)
endif()
