# Takes out of static libraries what only a debugger reads, as Debian wants it; CPack itself leaves them as they are.
find_program(STRIP strip REQUIRED)
file(GLOB_RECURSE libraries ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.a)
foreach(library ${libraries})
  execute_process(COMMAND ${STRIP} --strip-debug --enable-deterministic-archives ${library} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
