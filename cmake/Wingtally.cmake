# How every library, program and test of the tree is made: the flags live here once.

# Unity builds (presets ci and asan) compile the sources of a target together: the standard headers are
# read once. A compiler cache does better with one source at a time.
if(CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_UNITY_BUILD OFF)
endif()

add_library(wingtally_flags INTERFACE)
target_include_directories(wingtally_flags INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(wingtally_flags INTERFACE
  # A fused multiply-add changes results bit for bit, and with them whole careers.
  -ffp-contract=off
  -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wformat=2
  $<$<CXX_COMPILER_ID:GNU>:-Wsuggest-override> $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local>
  # In a unity build the names of one source would shadow those of another.
  $<$<AND:$<CXX_COMPILER_ID:Clang>,$<NOT:$<BOOL:${CMAKE_UNITY_BUILD}>>>:-Wshadow>)

if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  # It takes every source in a unity build for a header, in which an anonymous namespace is a fault.
  target_compile_options(wingtally_flags INTERFACE -Wno-subobject-linkage)
endif()

if(WIN32)
  # The compiler's own libraries go into each program; beside it is SDL alone.
  target_link_options(wingtally_flags INTERFACE -static)
endif()

# Of the pictures' decoder. Numbers of a damaged file overflow in it; it checks the result, so let them
# wrap. It also copies nothing to nowhere, which does no harm and isn't worth a sanitizer's finding.
set(WINGTALLY_DECODER_OPTIONS -fwrapv -fno-sanitize=nonnull-attribute -Wno-old-style-cast)

# wingtally_library(NAME [HOT] SOURCES file... LINKS library...): a static library of one folder.
# HOT: a war or a picture takes its time there, so the preset asan optimises it too.
function(wingtally_library name)
  cmake_parse_arguments(ARG "HOT" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  if(ARG_HOT)
    target_compile_options(${name} PRIVATE ${WINGTALLY_HOT_OPTIONS})
  endif()
  target_link_libraries(${name} PUBLIC wingtally_flags ${ARG_LINKS})
endfunction()

# wingtally_program(NAME [NOINSTALL] SOURCES file... LINKS library...): a program in bin.
function(wingtally_program name)
  cmake_parse_arguments(ARG "NOINSTALL" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE wingtally_flags ${ARG_LINKS})
  if(NOT ARG_NOINSTALL)
    install(TARGETS ${name} RUNTIME DESTINATION ${WINGTALLY_INSTALL_BIN})
  endif()
endfunction()

# add_test_program(NAME SOURCES file... LINKS library...): a GoogleTest program. Half of the time that
# a test takes to compile goes into GoogleTest's own headers: they are compiled once, except where a
# compiler cache shares the work between trees, which it can't do with such headers.
function(add_test_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_compile_options(${name} PRIVATE -O0) # what a test spends its time in is in the libraries
  target_link_libraries(${name} PRIVATE wingtally_flags ${ARG_LINKS} test_support GTest::gtest GTest::gtest_main)
  if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    target_precompile_headers(${name} REUSE_FROM test_headers)
  endif()
  add_dependencies(${name} run_folder)
endfunction()

# wingtally_test(NAME LABEL label SOURCES file... LINKS library...): one GoogleTest program, one
# label. It runs in the staged run folder, where the delivered Data is.
function(wingtally_test name)
  cmake_parse_arguments(ARG "" "LABEL" "SOURCES;LINKS" ${ARGN})
  add_test_program(${name} SOURCES ${ARG_SOURCES} LINKS ${ARG_LINKS})
  if(ARG_LABEL STREQUAL unit)
    add_dependencies(unit_tests ${name})
  endif()
  if(ARG_LABEL STREQUAL unit AND NOT WINGTALLY_UNIT_TESTS)
    set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL ON)
    return()
  endif()
  gtest_discover_tests(${name} WORKING_DIRECTORY ${WINGTALLY_RUN_DIR} DISCOVERY_MODE PRE_TEST
    PROPERTIES LABELS ${ARG_LABEL} TIMEOUT 900
    ENVIRONMENT SDL_VIDEODRIVER=dummy ENVIRONMENT_MODIFICATION SDL_AUDIODRIVER=set:dummy)
endfunction()

# The display of a screen test. A server that resets with its last client, as between two windows,
# loses the next one. Wine keeps to the display that was there when it was started.
find_program(WINGTALLY_XVFB_RUN xvfb-run)
set(own_display ${WINGTALLY_XVFB_RUN} -a -s "-screen 0 1280x1024x24 -noreset")
if(WIN32)
  set(own_display)
endif()

# wingtally_screen_test(NAME SOURCES file... LINKS library...): one GoogleTest program of windows
# and pictures. It runs as one test, on a display of its own with OpenGL in software; label screens.
function(wingtally_screen_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_test_program(${name} SOURCES ${ARG_SOURCES} LINKS ${ARG_LINKS})
  if(NOT WINGTALLY_XVFB_RUN)
    message(WARNING "No xvfb-run: ${name} is built, but not among the tests")
    return()
  endif()
  add_test(NAME ${name}
    COMMAND ${own_display} ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${name}>
    WORKING_DIRECTORY ${WINGTALLY_RUN_DIR})
  # One at a time, and from the start: they take longest.
  set_tests_properties(${name} PROPERTIES LABELS screens TIMEOUT 1200 RESOURCE_LOCK display COST 1000
    ENVIRONMENT "LIBGL_ALWAYS_SOFTWARE=1;SDL_AUDIODRIVER=dummy")
endfunction()
