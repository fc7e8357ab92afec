# A component module, built for Windows as a DLL and natively linked into the programs that use it.
#
# qp_module(name DEF <file.def> RC <file.rc> [RC_DEPENDS <file> ...] [RC_INCLUDE <folder> ...]
#           OBJECTS <object target> ... [DEPENDS <library> ...])
#   Windows: the DLL name.dll beside the programs, from the objects, the .def and the resources.
#   Natively: an interface library that brings the same objects, the resources as the same compiler writes them, and
#   the module's registration, whose exports are read from the same .def.
#
# qp_use_module(program module)
#   Makes a program able to load the module: built before it on Windows, linked into it natively.

find_program(QP_WINDRES NAMES x86_64-w64-mingw32-windres REQUIRED NO_CMAKE_FIND_ROOT_PATH)

# Compiles the resources to `output` in windres's format `format`.
function(_qp_compile_resources output format rc)
  cmake_parse_arguments(QP "" "" "DEPENDS;INCLUDE" ${ARGN})
  get_filename_component(folder ${rc} DIRECTORY)
  set(includes -I ${folder})
  foreach(include IN LISTS QP_INCLUDE)
    list(APPEND includes -I ${include})
  endforeach()
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${QP_WINDRES} -c 65001 -O ${format} ${includes} ${rc} ${output}
    DEPENDS ${rc} ${QP_DEPENDS}
    COMMENT "Resources ${output}"
    VERBATIM)
endfunction()

# Reads the EXPORTS of a .def into two lists of equal length: the exported names and their functions. The forms are
# "Name" and "Name = Function", each with PRIVATE or without; a comment is a line that starts with a semicolon, as for
# the linker.
function(_qp_read_exports def names functions)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${def})
  file(READ ${def} text)
  string(REGEX REPLACE "(^|\n)[ \t]*;[^\n]*" "\\1" text "${text}")
  string(REGEX REPLACE "[\r\n]+" ";" lines "${text}")
  set(exported)
  set(behind)
  set(inside FALSE)
  foreach(line IN LISTS lines)
    string(STRIP "${line}" line)
    if(line MATCHES "^EXPORTS$")
      set(inside TRUE)
    elseif(line MATCHES "^(LIBRARY|NAME|DESCRIPTION|VERSION)( |$)")
      set(inside FALSE)
    elseif(inside AND line MATCHES "^([A-Za-z_][A-Za-z0-9_]*)([ \t]*=[ \t]*([A-Za-z_][A-Za-z0-9_]*))?([ \t]+PRIVATE)?$")
      list(APPEND exported ${CMAKE_MATCH_1})
      if(CMAKE_MATCH_3)
        list(APPEND behind ${CMAKE_MATCH_3})
      else()
        list(APPEND behind ${CMAKE_MATCH_1})
      endif()
    elseif(inside AND NOT line STREQUAL "")
      message(FATAL_ERROR "${def}: not understood: ${line}")
    endif()
  endforeach()
  set(${names} ${exported} PARENT_SCOPE)
  set(${functions} ${behind} PARENT_SCOPE)
endfunction()

# Writes the source that embeds the resources and registers the module.
function(_qp_write_registration source name def resources)
  _qp_read_exports(${def} names functions)
  set(unique ${functions})
  list(REMOVE_DUPLICATES unique)
  set(QP_DECLARATIONS "")
  foreach(function IN LISTS unique)
    string(APPEND QP_DECLARATIONS "extern \"C\" INT_PTR ${function}();\n")
  endforeach()
  set(QP_ENTRIES "")
  foreach(export function IN ZIP_LISTS names functions)
    string(APPEND QP_ENTRIES "    {\"${export}\", &${function}},\n")
  endforeach()
  set(QP_NAME ${name})
  set(QP_RESOURCES ${resources})
  string(MAKE_C_IDENTIFIER ${name} QP_SYMBOL)
  configure_file(${CMAKE_SOURCE_DIR}/cmake/module.cpp.in ${source} @ONLY)
endfunction()

function(qp_module name)
  cmake_parse_arguments(QP "" "DEF;RC" "RC_DEPENDS;RC_INCLUDE;OBJECTS;DEPENDS" ${ARGN})
  get_filename_component(def ${QP_DEF} ABSOLUTE)
  get_filename_component(rc ${QP_RC} ABSOLUTE)
  set(stem ${CMAKE_CURRENT_BINARY_DIR}/${name})
  if(WIN32)
    _qp_compile_resources(${stem}.res.o coff ${rc} DEPENDS ${QP_RC_DEPENDS} INCLUDE ${QP_RC_INCLUDE})
    set_source_files_properties(${stem}.res.o PROPERTIES EXTERNAL_OBJECT ON GENERATED ON)
    add_library(${name} SHARED ${stem}.res.o ${def})
    target_link_libraries(${name} PRIVATE ${QP_OBJECTS} ${QP_DEPENDS} winapi)
    # The import library is not written to the programs' folder, which contains what is shipped.
    set_target_properties(${name} PROPERTIES PREFIX "" LINKER_LANGUAGE CXX
                          ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
  else()
    _qp_compile_resources(${stem}.res res ${rc} DEPENDS ${QP_RC_DEPENDS} INCLUDE ${QP_RC_INCLUDE})
    _qp_write_registration(${stem}_module.cpp ${name} ${def} ${stem}.res)
    set_source_files_properties(${stem}_module.cpp PROPERTIES OBJECT_DEPENDS ${stem}.res)
    add_library(${name}_registration OBJECT ${stem}_module.cpp)
    target_link_libraries(${name}_registration PRIVATE winapi)
    add_library(${name} INTERFACE)
    target_sources(${name} INTERFACE $<TARGET_OBJECTS:${name}_registration>)
    foreach(objects IN LISTS QP_OBJECTS)
      target_sources(${name} INTERFACE $<TARGET_OBJECTS:${objects}>)
    endforeach()
    target_link_libraries(${name} INTERFACE ${QP_OBJECTS} ${QP_DEPENDS} winapi)
  endif()
endfunction()

function(qp_use_module program module)
  if(WIN32)
    add_dependencies(${program} ${module})
  else()
    target_link_libraries(${program} PRIVATE ${module})
  endif()
endfunction()
