# The headers of the classes that a host uses without COM, in sdk/include/qptools: these, whatever they include, and
# nothing else. A header that is neither in the folders below nor made from the IDL ends the configuration. A change of a
# copied header, and so of what it includes, makes CMake run again.
#
# QP_SDK_HEADERS is the list of their names.

set(QP_SDK_HEADERS)
if(NOT WIN32)
  return()
endif()

set(_sdk_classes CEnhancedCopyDialog.h CEnhanceCopyListCtrl.h)
set(_sdk_folders qptools/copy framework support/qpconvert32)
list(TRANSFORM QP_IDL_FILES REPLACE "^.*/([a-z]+)\\.idl$" "\\1.h" OUTPUT_VARIABLE _sdk_generated)

set(_open ${_sdk_classes})
while(_open)
  list(POP_FRONT _open _name)
  if(_name IN_LIST QP_SDK_HEADERS OR _name IN_LIST _sdk_generated)
    continue()
  endif()
  set(_source)
  foreach(_folder IN LISTS _sdk_folders)
    if(EXISTS ${CMAKE_SOURCE_DIR}/${_folder}/${_name})
      set(_source ${CMAKE_SOURCE_DIR}/${_folder}/${_name})
    endif()
  endforeach()
  if(NOT _source)
    message(FATAL_ERROR "The SDK needs ${_name}, which is in none of ${_sdk_folders}")
  endif()
  list(APPEND QP_SDK_HEADERS ${_name})
  configure_file(${_source} ${QP_SDK_DIR}/include/qptools/${_name} COPYONLY)
  file(STRINGS ${_source} _includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
  list(TRANSFORM _includes REPLACE ".*\"(.*)\".*" "\\1")
  list(APPEND _open ${_includes})
endwhile()

# Headers that are no longer included by any of them.
file(GLOB _copies RELATIVE ${QP_SDK_DIR}/include/qptools ${QP_SDK_DIR}/include/qptools/*)
list(REMOVE_ITEM _copies ${QP_SDK_HEADERS})
foreach(_copy IN LISTS _copies)
  file(REMOVE ${QP_SDK_DIR}/include/qptools/${_copy})
endforeach()
