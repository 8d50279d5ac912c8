# Installs the package into BUILD/package, looks at what is there, and builds and runs the examples with it alone.
cmake_minimum_required(VERSION 3.25)

set(prefix ${BUILD}/package/prefix)
set(moved ${BUILD}/package/moved)

# run(what argument...): fails with the command's output, which is left in `output`.
function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what}: ${result}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

# The package has to work wherever it is brought to.
function(install_package)
  file(REMOVE_RECURSE ${prefix} ${moved})
  foreach(component ${COMPONENTS})
    run("installing ${component}" ${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix} --component Tessarine${component})
  endforeach()
  file(RENAME ${prefix} ${moved})
endfunction()

# What a debugger reads of a debug build may name this machine; nothing else may.
function(check_no_machine_path)
  file(GLOB archives ${moved}/lib/*.a ${moved}/lib/*/*.a)
  if(NOT archives)
    message(FATAL_ERROR "no library was installed")
  endif()
  if(CONFIG STREQUAL Debug)
    foreach(archive ${archives})
      run("stripping" ${OBJCOPY} --strip-debug ${archive})
    endforeach()
  endif()
  execute_process(COMMAND grep -rlF -e ${ROOT} -e ${BUILD} -e ${prefix} ${moved} OUTPUT_VARIABLE found RESULT_VARIABLE result)
  if(NOT result EQUAL 1)
    message(FATAL_ERROR "these name where they were built:\n${found}")
  endif()
endfunction()

# Headers that are installed include what is installed.
function(check_headers)
  set(include ${moved}/include/tessarine)
  file(GLOB_RECURSE headers ${include}/*.h)
  foreach(header ${headers})
    file(STRINGS ${header} lines REGEX "^#include \"")
    foreach(line ${lines})
      string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" included "${line}")
      if(NOT EXISTS ${include}/${included})
        message(SEND_ERROR "${header} includes ${included}, which is not installed")
      endif()
    endforeach()
  endforeach()
endfunction()

function(build_example name)
  set(build ${BUILD}/package/${name})
  file(REMOVE_RECURSE ${build})
  run("configuring ${name}" ${CMAKE_COMMAND} -S ${ROOT}/examples/${name} -B ${build} -G Ninja
    -DCMAKE_PREFIX_PATH=${moved} -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_CXX_FLAGS=${FLAGS}
    -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_BUILD_TYPE=Debug ${ARGN})
  run("building ${name}" ${CMAKE_COMMAND} --build ${build})
endfunction()

# check_output(text pattern): what the last command printed, with its escapes written as "ESC".
function(check_output pattern)
  string(ASCII 27 escape)
  string(REPLACE "${escape}" "ESC" output "${output}")
  if(NOT output MATCHES "${pattern}")
    message(SEND_ERROR "'${pattern}' is not in what was printed:\n${output}")
  endif()
endfunction()

# Another program: a file of C, a name in it replaced, in colours.
function(check_terminal_example)
  build_example(terminal -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON)
  set(program ${BUILD}/package/terminal/colours)
  file(WRITE ${BUILD}/package/sample.c "int main(void) { return call(1); } // grün\n")
  run("colouring" ${program} ${BUILD}/package/sample.c "c(al)l" "re$1")
  set(keyword "ESC\\[38;2;207;151;234m")
  set(function "ESC\\[38;2;116;180;245m")
  check_output("${keyword}return")
  check_output("${function}real")
  check_output("m// grün")
  execute_process(COMMAND ${program} ${BUILD}/package/sample.c "(" "" RESULT_VARIABLE result OUTPUT_QUIET ERROR_QUIET)
  if(NOT result EQUAL 1)
    message(SEND_ERROR "a pattern that is none ended in ${result}")
  endif()
endfunction()

# Who asks for a widget where there is no Qt is told so.
function(check_refusal)
  set(build ${BUILD}/package/refused)
  file(REMOVE_RECURSE ${build})
  execute_process(COMMAND ${CMAKE_COMMAND} -S ${ROOT}/examples/embed -B ${build} -G Ninja -DCMAKE_PREFIX_PATH=${moved}
    -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON
    RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE output)
  if(result EQUAL 0)
    message(SEND_ERROR "a widget was found without Qt")
  endif()
  check_output("component View")
endfunction()

# A window, which leaves a picture of itself: it has the theme's background, a keyword's colour and a comment's.
function(check_embedding_example)
  build_example(embed)
  set(picture ${BUILD}/package/embed.png)
  file(REMOVE ${picture})
  # What the toolkit does not give back, as cmake/TestMain.cpp tells, is no fault of the package.
  run("showing a window" ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
    ${BUILD}/package/embed/embedded-editor ${picture})
  run("looking at its picture" convert ${picture} -unique-colors txt:-)
  check_output("#171A20")
  check_output("#CF97EA")
  check_output("#9DA4B2")
endfunction()

# What is told to be in the example is in it.
function(check_told file)
  file(READ ${ROOT}/docs/embedding.md told)
  file(READ ${ROOT}/examples/embed/${file} text)
  string(FIND "${told}" "${text}" at)
  if(at EQUAL -1)
    message(SEND_ERROR "docs/embedding.md shows another examples/embed/${file}")
  endif()
endfunction()

check_told(CMakeLists.txt)
check_told(main.cpp)
install_package()
check_headers()
check_no_machine_path()
check_terminal_example()
check_refusal()
if(View IN_LIST COMPONENTS)
  check_embedding_example()
endif()
