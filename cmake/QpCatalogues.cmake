# Message catalogues: qptools/res/lang/<lang>.po becomes locale/<lang>/qptools.mo beside the programs, where the
# module looks for it, with the project's version in its header.

find_program(QP_MSGFMT msgfmt REQUIRED NO_CMAKE_FIND_ROOT_PATH)
file(GLOB _catalogue_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/qptools/res/lang/*.po)

set(_catalogues)
foreach(_source IN LISTS _catalogue_sources)
  get_filename_component(_language ${_source} NAME_WE)
  set(_folder ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/locale/${_language})
  set(_versioned ${CMAKE_BINARY_DIR}/version/${_language}.po)
  configure_file(${_source} ${_versioned} @ONLY)
  add_custom_command(
    OUTPUT ${_folder}/qptools.mo
    COMMAND ${CMAKE_COMMAND} -E make_directory ${_folder}
    COMMAND ${QP_MSGFMT} -c -o ${_folder}/qptools.mo ${_versioned}
    DEPENDS ${_versioned}
    COMMENT "Catalogue ${_language}"
    VERBATIM)
  list(APPEND _catalogues ${_folder}/qptools.mo)
endforeach()

add_custom_target(qp_catalogues ALL DEPENDS ${_catalogues})
