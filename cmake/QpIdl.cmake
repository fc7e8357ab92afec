# Headers, identifiers and the type library from the IDL, which is their only source. All of them are written to sdk/.

set(QP_SDK_DIR ${CMAKE_BINARY_DIR}/sdk)
set(QP_TYPE_LIBRARY ${QP_SDK_DIR}/qptools.tlb)
set(QP_IDL_FILES
    ${CMAKE_SOURCE_DIR}/qptools/server/qptools.idl ${CMAKE_SOURCE_DIR}/qptools/host/qptypes.idl
    ${CMAKE_SOURCE_DIR}/qptools/host/qpconfig.idl ${CMAKE_SOURCE_DIR}/qptools/host/qpobjects.idl
    ${CMAKE_SOURCE_DIR}/qptools/host/qpcarried.idl ${CMAKE_SOURCE_DIR}/qptools/host/qpservices.idl)

find_program(QP_WIDL NAMES widl widl-stable REQUIRED NO_CMAKE_FIND_ROOT_PATH)
find_path(QP_SYSTEM_IDL oaidl.idl PATHS /usr/include/wine/wine/windows REQUIRED NO_CMAKE_FIND_ROOT_PATH)

set(_sdk_outputs)
set(_iid_sources)
foreach(_idl IN LISTS QP_IDL_FILES)
  get_filename_component(_stem ${_idl} NAME_WE)
  get_filename_component(_folder ${_idl} DIRECTORY)
  set(_copy ${QP_SDK_DIR}/${_stem}.idl)
  set(_header ${QP_SDK_DIR}/include/${_stem}.h)
  set(_iids ${CMAKE_BINARY_DIR}/iids/${_stem}_i.c)
  add_custom_command(
    OUTPUT ${_copy} ${_header} ${_iids}
    COMMAND ${CMAKE_COMMAND} -E copy ${_idl} ${_copy}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${QP_SDK_DIR}/include ${CMAKE_BINARY_DIR}/iids
    COMMAND ${QP_WIDL} -I ${QP_SYSTEM_IDL} -I ${CMAKE_SOURCE_DIR}/qptools/host -h -o ${_header} ${_stem}.idl
    COMMAND ${QP_WIDL} -I ${QP_SYSTEM_IDL} -I ${CMAKE_SOURCE_DIR}/qptools/host -u -o ${_iids} ${_stem}.idl
    # From the file's own folder: widl writes the path it was given into the header.
    WORKING_DIRECTORY ${_folder}
    DEPENDS ${QP_IDL_FILES}
    COMMENT "IDL ${_stem}"
    VERBATIM)
  list(APPEND _sdk_outputs ${_copy} ${_header})
  list(APPEND _iid_sources ${_iids})
endforeach()

# widl writes the build time into the library. It is removed, so that equal sources give equal files.
add_custom_command(
  OUTPUT ${QP_TYPE_LIBRARY}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${QP_SDK_DIR}
  COMMAND ${QP_WIDL} -I ${QP_SYSTEM_IDL} -I ${CMAKE_SOURCE_DIR}/qptools/host -t -o ${QP_TYPE_LIBRARY}
          ${CMAKE_SOURCE_DIR}/qptools/server/qptools.idl
  COMMAND perl ${CMAKE_SOURCE_DIR}/tools/strip-tlb-time.pl ${QP_TYPE_LIBRARY}
  DEPENDS ${QP_IDL_FILES} ${CMAKE_SOURCE_DIR}/tools/strip-tlb-time.pl
  COMMENT "Type library"
  VERBATIM)

add_custom_target(qp_sdk ALL DEPENDS ${_sdk_outputs} ${_iid_sources} ${QP_TYPE_LIBRARY})

# qp_interfaces: the generated headers and the identifiers they declare.
add_library(qp_interfaces STATIC ${_iid_sources})
target_include_directories(qp_interfaces PUBLIC ${QP_SDK_DIR}/include)
add_dependencies(qp_interfaces qp_sdk)
target_link_libraries(qp_interfaces PUBLIC winapi)
