# Tests of the built module that only Windows can answer: type library, image, registration.
add_library(module_checks STATIC TypeLibraryText.cpp TypeLibraryTable.cpp PortableImage.cpp)
target_include_directories(module_checks PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(module_checks PUBLIC qp_options winapi framework qp_gtest)

qp_test(typelib_tests SOURCES typelib_test.cpp DEPENDS module_checks LABELS windows-only)
qp_test(image_tests SOURCES image_test.cpp DEPENDS module_checks qptools_version version LABELS windows-only)
set_source_files_properties(image_test.cpp PROPERTIES COMPILE_DEFINITIONS QP_SOURCE_FOLDER="${CMAKE_SOURCE_DIR}")
qp_test(regsvr_tests SOURCES regsvr_test.cpp RegistrySnapshot.cpp DEPENDS module_checks LABELS windows-only SERIAL)
qp_test(moved_module_tests SOURCES moved_module_test.cpp DEPENDS qp_interfaces framework LABELS windows-only)
add_dependencies(moved_module_tests qp_catalogues)

foreach(test typelib_tests image_tests regsvr_tests moved_module_tests)
  add_dependencies(${test} qptools qp_sdk)
endforeach()
