# How every folder declares its library, its tests and its benchmarks.

set(node_modules ${PROJECT_SOURCE_DIR}/node_modules)

# Warnings and sanitizers for our own code only; linked PRIVATE.
add_library(quillet_warnings INTERFACE)
target_compile_options(quillet_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Werror)
target_compile_definitions(quillet_warnings INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
  QT_NO_KEYWORDS QT_NO_JAVA_STYLE_ITERATORS)
if(QUILLET_SANITIZERS)
  add_compile_options(-fsanitize=${QUILLET_SANITIZERS} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QUILLET_SANITIZERS})
endif()

# For what is installed: where nothing is debugged, objects name their sources from the root of the tree, wherever it was.
set(source_names $<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>)

# third_party_c(target): C of others, without our warnings and optimised in every build: a parser that is not takes
# several times as long.
function(third_party_c target)
  set_target_properties(${target} PROPERTIES C_STANDARD 11 POSITION_INDEPENDENT_CODE ON)
  target_compile_options(${target} PRIVATE -w -O2 ${source_names})
endfunction()

# quillet_library(name SOURCES ... LINK ...): the static library of one folder.
function(quillet_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE quillet_warnings)
endfunction()

# Suites without windows, for a run of them alone with sanitizers.
add_custom_target(unit_suites)
function(unit_suite suite)
  add_dependencies(unit_suites ${suite}_tests)
endfunction()

# quillet_tests(suite [ON_SCREEN|UNIT] SOURCES ... LINK ...): the tests of one folder, run by `./test suite`; those of
# what is on screen also by `./test screens`, UNIT ones by `./test unit`.
# Each test is its own process: a crash is one failure, and shared instances start fresh.
function(quillet_tests suite)
  cmake_parse_arguments(ARG "ON_SCREEN;UNIT" "" "SOURCES;LINK" ${ARGN})
  set(label ${suite})
  if(ARG_ON_SCREEN)
    set(label screens/${suite}) # not two labels: the discovery of tests makes a list flat
    set_property(GLOBAL APPEND PROPERTY QUILLET_ON_SCREEN ${suite}_tests)
  elseif(ARG_UNIT)
    set(label unit/${suite})
  endif()
  add_executable(${suite}_tests ${ARG_SOURCES} ${PROJECT_SOURCE_DIR}/cmake/TestMain.cpp)
  set_target_properties(${suite}_tests PROPERTIES AUTOMOC ON)
  target_link_libraries(${suite}_tests PRIVATE ${ARG_LINK} Qt6::Widgets Qt6::Test GTest::gtest GTest::gmock
    quillet_warnings)
  include(GoogleTest)
  gtest_discover_tests(${suite}_tests DISCOVERY_MODE PRE_TEST TEST_PREFIX "${suite}." PROPERTIES
    LABELS ${label} TIMEOUT 300)
  if(ARG_UNIT)
    unit_suite(${suite})
  endif()
endfunction()

# tessarine_tests(suite SOURCES ...): the tests of one folder of the engine, without Qt.
function(tessarine_tests suite)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${suite}_tests ${ARG_SOURCES})
  target_link_libraries(${suite}_tests PRIVATE tessarine ${ARG_LINK} GTest::gtest_main GTest::gmock
    quillet_warnings)
  include(GoogleTest)
  gtest_discover_tests(${suite}_tests DISCOVERY_MODE PRE_TEST TEST_PREFIX "${suite}." PROPERTIES
    LABELS unit/${suite} TIMEOUT 300)
  unit_suite(${suite})
endfunction()

# tessarine_fuzz(suite name SOURCES ... CORPUS folder RUNS n): a fuzz target of a folder of the engine. With
# clang (the preset `fuzz`) it is libFuzzer's and its test runs for a minute; else a driver of our own takes the
# same options, and the suite's tests run the corpus and so many mutations.
function(tessarine_fuzz suite name)
  cmake_parse_arguments(ARG "" "CORPUS;RUNS" "SOURCES" ${ARGN})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    set(driver "")
    set(fuzzer -fsanitize=fuzzer)
    set(bound -max_total_time=60)
  else()
    set(driver ${PROJECT_SOURCE_DIR}/Tessarine/document/fuzz/StandaloneDriver.cpp)
    set(fuzzer "")
    set(bound -runs=${ARG_RUNS})
  endif()
  add_executable(${name} ${ARG_SOURCES} ${driver})
  target_compile_options(${name} PRIVATE ${fuzzer})
  target_link_options(${name} PRIVATE ${fuzzer})
  target_link_libraries(${name} PRIVATE tessarine quillet_warnings)
  add_dependencies(${suite}_tests ${name}) # whoever builds the suite can run all of it
  # What libFuzzer finds goes to the first folder, not among the sources.
  set(found ${CMAKE_CURRENT_BINARY_DIR}/${name}-found)
  file(MAKE_DIRECTORY ${found})
  add_test(NAME ${suite}.${name} COMMAND ${name} ${bound} -seed=1 ${found}
    ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_CORPUS})
  set_tests_properties(${suite}.${name} PROPERTIES LABELS "unit/${suite};fuzz" TIMEOUT 300)
endfunction()

# quillet_bench(name SOURCES ... LINK ...): benchmarks, run by `./bench name`; not part of `all`.
function(quillet_bench name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name}_bench EXCLUDE_FROM_ALL ${ARG_SOURCES})
  target_link_libraries(${name}_bench PRIVATE ${ARG_LINK} benchmark::benchmark quillet_warnings)
  set_property(GLOBAL APPEND PROPERTY QUILLET_BENCHES ${name}_bench)
endfunction()
