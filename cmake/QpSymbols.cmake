# qp_split_symbols(module): leaves the debug information of a DLL in symbols/<file>.debug, and in the DLL the name and the
# checksum of that file, by which debuggers find it. Beside it is the map of the link, symbols/<module>.map.

find_program(QP_OBJCOPY NAMES x86_64-w64-mingw32-objcopy REQUIRED NO_CMAKE_FIND_ROOT_PATH)

function(qp_split_symbols module)
  set(symbols ${CMAKE_BINARY_DIR}/symbols/$<TARGET_FILE_NAME:${module}>.debug)
  # It would write the time into the header.
  set(objcopy ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0 ${QP_OBJCOPY})
  set_target_properties(${module} PROPERTIES QP_KEEPS_SYMBOLS ON)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/symbols)
  target_link_options(${module} PRIVATE -Wl,-Map,${CMAKE_BINARY_DIR}/symbols/${module}.map)
  add_custom_command(
    TARGET ${module} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/symbols
    COMMAND ${objcopy} --only-keep-debug $<TARGET_FILE:${module}> ${symbols}
    COMMAND ${objcopy} --strip-all --add-gnu-debuglink=${symbols} $<TARGET_FILE:${module}>
    VERBATIM)
endfunction()
