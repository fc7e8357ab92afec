# One place for how a target of this project is compiled and tested. Every folder's headers are visible only to targets
# that link its target, so an include against the direction of dependencies does not compile.

add_library(qp_options INTERFACE)
target_compile_options(qp_options INTERFACE -Wall -Wextra -Wno-missing-field-initializers -Wno-unknown-pragmas)
# GCC 12, when optimising, takes the buffer for short texts inside a std::string for the whole storage. Under one of
# these names or another it wrongly warns that longer literals are copied beyond its end. Other compilers keep the
# warnings, and so does the sanitised build, which checks every copy at run time.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION MATCHES "^12\\." AND NOT QP_SANITIZE)
  target_compile_options(qp_options INTERFACE -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()
target_compile_definitions(qp_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)
if(WIN32)
  target_compile_definitions(qp_options INTERFACE _WIN32_WINNT=0x0601 __USE_MINGW_ANSI_STDIO=0)
  # Reproducible images: no link time in the header, no base address hashed from the output path.
  add_link_options(-static -Wl,--no-insert-timestamp -Wl,--image-base,0x180000000)
  # The symbols of the module are split off after its link.
  add_link_options($<$<NOT:$<BOOL:$<TARGET_PROPERTY:QP_KEEPS_SYMBOLS>>>:-s>)
endif()
if(QP_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
  # At a fixed address the programs need a third less on the disk: the tables of the sanitizers are full of addresses.
  add_link_options(-fsanitize=address,undefined -no-pie)
endif()
if(QP_COVERAGE)
  # Atomic, because threads count as well.
  add_compile_options(--coverage -fprofile-update=atomic)
  add_link_options(--coverage)
endif()
# No path of the build machine in any image or message.
add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}/= -ffile-prefix-map=${CMAKE_BINARY_DIR}/=)

# Nor in the debug information, which names the folder of the build, and the sources by a relative path if the cache
# compiled them. GCC takes the last of these that matches.
file(RELATIVE_PATH QP_UP ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR}/VERSION)
string(REPLACE VERSION "" QP_UP ${QP_UP})
set(QP_DEBUG_PATHS -fdebug-prefix-map=${CMAKE_BINARY_DIR}=. -fdebug-prefix-map=${CMAKE_BINARY_DIR}/=
                   -fdebug-prefix-map=${QP_UP}=)

# A folder of which the module consists sets QP_SHIPPED, and is compiled with debug information. A precompiled header
# serves either these or the others.
function(_qp_setup name)
  target_link_libraries(${name} PUBLIC qp_options winapi)
  if(NOT WIN32)
    return()
  endif()
  if(QP_SHIPPED)
    target_compile_options(${name} PRIVATE -g ${QP_DEBUG_PATHS})
    target_precompile_headers(${name} REUSE_FROM qp_shipped_pch)
  else()
    target_precompile_headers(${name} REUSE_FROM qp_pch)
  endif()
endfunction()

# qp_object(name SOURCES ... [DEPENDS ...]): a folder of the module. An object library, because the linker takes nothing
# out of an archive for a .def file or dllexport.
function(qp_object name)
  cmake_parse_arguments(QP "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} OBJECT ${QP_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${QP_DEPENDS})
  _qp_setup(${name})
endfunction()

# qp_static(name SOURCES ... [DEPENDS ...]): a static library.
function(qp_static name)
  cmake_parse_arguments(QP "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${QP_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${QP_DEPENDS})
  _qp_setup(${name})
endfunction()

# qp_program(name SOURCES ... [DEPENDS ...]): a console program.
function(qp_program name)
  cmake_parse_arguments(QP "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${QP_SOURCES})
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${QP_DEPENDS})
  _qp_setup(${name})
endfunction()

# qp_traces(program): the tests of the program compare their scenarios with traces/PROGRAM.txt of this folder (see
# Story.h), which they find in traces/ beside the program.
function(qp_traces program)
  set(source ${CMAKE_CURRENT_SOURCE_DIR}/traces/${program}.txt)
  set(copy ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/traces/${program}.txt)
  add_custom_command(
    OUTPUT ${copy}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/traces
    COMMAND ${CMAKE_COMMAND} -E copy ${source} ${copy}
    DEPENDS ${source}
    COMMENT "Traces of ${program}"
    VERBATIM)
  target_sources(${program} PRIVATE ${copy})
  target_compile_definitions(${program} PRIVATE QP_TRACES="${program}.txt")
endfunction()

# qp_test(name SOURCES ... [DEPENDS ...] [LABELS ...] [SERIAL]): a GoogleTest program whose tests ctest finds by running
# it. SERIAL: none of its tests runs beside another test. The others are in batch.programs, for tools/run-batches.
# check.programs lists all of them, for package/check.
function(qp_test name)
  cmake_parse_arguments(QP "SERIAL" "" "SOURCES;DEPENDS;LABELS" ${ARGN})
  qp_program(${name} SOURCES ${QP_SOURCES} DEPENDS ${QP_DEPENDS} qp_gtest)
  if(QP_SANITIZE)
    # With optimisation, tests take two to three times as long to compile under the sanitizers and run no faster: the
    # time is spent in the code under test. Checks of every pointer of a test double its object file; the address
    # sanitizer finds an access to null as well.
    target_compile_options(${name} PRIVATE -O0 -fno-sanitize=null,alignment)
  endif()
  # An empty value would be dropped from the list and shift those after it.
  set(properties)
  if(QP_LABELS)
    list(APPEND properties LABELS "${QP_LABELS}")
  endif()
  if(NOT WIN32)
    # Two properties, because a list of several values does not reach the tests intact. On Windows
    # tools/wine-run sets both.
    list(APPEND properties ENVIRONMENT LC_ALL=C.UTF-8 ENVIRONMENT_MODIFICATION TZ=set:UTC)
  endif()
  set(company beside)
  if(QP_SERIAL)
    list(APPEND properties RUN_SERIAL ON)
    set(company alone)
  else()
    set_property(GLOBAL APPEND_STRING PROPERTY QP_BATCH_PROGRAMS "$<TARGET_FILE:${name}> ${CMAKE_CURRENT_BINARY_DIR}\n")
  endif()
  set_property(GLOBAL APPEND_STRING PROPERTY QP_CHECK_PROGRAMS "${name} ${company}\n")
  set_target_properties(${name} PROPERTIES CROSSCOMPILING_EMULATOR ${CMAKE_SOURCE_DIR}/tools/run-test)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES
                       TEST_PREFIX "${name}." PROPERTIES ${properties})
endfunction()

include(GoogleTest)
if(WIN32)
  # Debian ships GoogleTest as source: built here with the cross compiler.
  set(INSTALL_GTEST OFF)
  set(BUILD_GMOCK OFF)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
else()
  find_package(GTest REQUIRED)
endif()
