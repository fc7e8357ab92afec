# find_package(qptools CONFIG): how a program uses qptools.dll.
#
#   qptools::sdk      the headers of the COM interfaces, for every compiler
#   qptools::classes  the same, and the two classes that the module exports by their C++ names; with GCC for mingw-w64
#                     alone, because names and layout of classes belong to a compiler and its library

get_filename_component(_qptools_root "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)

if(NOT TARGET qptools::sdk)
  add_library(qptools::sdk INTERFACE IMPORTED)
  set_target_properties(qptools::sdk PROPERTIES
                        INTERFACE_INCLUDE_DIRECTORIES "${_qptools_root}/include"
                        INTERFACE_COMPILE_FEATURES cxx_std_11
                        INTERFACE_LINK_LIBRARIES "ole32;oleaut32;uuid")
endif()

if(MINGW AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT TARGET qptools::classes)
  add_library(qptools::classes INTERFACE IMPORTED)
  set_target_properties(qptools::classes PROPERTIES
                        INTERFACE_COMPILE_FEATURES cxx_std_20
                        INTERFACE_LINK_LIBRARIES "${_qptools_root}/lib/libqptools.dll.a;qptools::sdk")
endif()

unset(_qptools_root)
