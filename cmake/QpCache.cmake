# Compiles through ccache where it is installed. With the base directory and the other settings, a clone in another
# folder finds what this one compiled. They are set here so that a plain `cmake --build` has them as well.
option(QP_CACHE "Compile through ccache if it is installed" ON)
find_program(QP_CCACHE ccache)
mark_as_advanced(QP_CCACHE)
if(QP_CACHE AND QP_CCACHE)
  foreach(_language C CXX)
    set(CMAKE_${_language}_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}
        CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        ${QP_CCACHE})
  endforeach()
  # ccache requires this of GCC for precompiled headers.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
  endif()
endif()
