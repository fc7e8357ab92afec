# clang for mingw-w64, with the headers, the run time and the linker of its GCC.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-windows-gnu)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

execute_process(COMMAND x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++.a
                OUTPUT_VARIABLE _library OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(_runtime ${_library} DIRECTORY)
find_program(QP_MINGW_LD x86_64-w64-mingw32-ld REQUIRED NO_CMAKE_FIND_ROOT_PATH)
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES ${_runtime}/include/c++ ${_runtime}/include/c++/x86_64-w64-mingw32)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-L${_runtime} -fuse-ld=${QP_MINGW_LD}")
# clang does not know that this run time has its threads in a library of their own.
set(CMAKE_CXX_STANDARD_LIBRARIES "-lstdc++ -lgcc_eh -lpthread" CACHE STRING "")
