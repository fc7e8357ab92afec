# Tests of the built module that only Windows can answer: type library, image, registration.
add_library(module_checks STATIC TypeLibraryText.cpp TypeLibraryTable.cpp PortableImage.cpp)
target_include_directories(module_checks PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(module_checks PUBLIC qp_options winapi framework qp_gtest)

qp_test(typelib_tests SOURCES typelib_test.cpp DEPENDS module_checks LABELS windows-only)
qp_test(image_tests SOURCES image_test.cpp DEPENDS module_checks qptools_version version LABELS windows-only)
target_link_libraries(image_tests PRIVATE imagehlp)
# Not in that program, which would hold the folder itself.
add_test(NAME module_image.holds_no_folder_of_the_machine_that_built_it
         COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/no-folder-test $<TARGET_FILE:qptools> ${CMAKE_SOURCE_DIR})
set_tests_properties(module_image.holds_no_folder_of_the_machine_that_built_it PROPERTIES LABELS windows-only)
qp_test(regsvr_tests SOURCES regsvr_test.cpp RegistrySnapshot.cpp DEPENDS module_checks test_common LABELS windows-only SERIAL)
qp_test(moved_module_tests SOURCES moved_module_test.cpp DEPENDS qp_interfaces framework test_common LABELS windows-only)
add_dependencies(moved_module_tests qp_catalogues)

foreach(test typelib_tests image_tests regsvr_tests moved_module_tests)
  add_dependencies(${test} qptools qp_sdk)
endforeach()

# The host that unloads the module.
qp_static(unloading_host SOURCES UnloadingHost.cpp ProcessCounts.cpp
  DEPENDS driver memory_host framework qpconvert32 qp_interfaces qp_gtest)
qp_program(unload_process_end SOURCES process_end.cpp DEPENDS unloading_host)
qp_use_module(unload_process_end qptools)
qp_test(unload_tests SOURCES unload_test.cpp DEPENDS unloading_host test_common LABELS windows-only SERIAL)
qp_use_module(unload_tests qptools)
add_dependencies(unload_tests unload_process_end qp_catalogues)

# The module's thread functions beside those of the program, and so by other names.
add_library(module_threads OBJECT ${CMAKE_SOURCE_DIR}/qptools/server/windows/ModuleThreads.cpp)
target_link_libraries(module_threads PRIVATE qp_options)
foreach(function mutex_init mutex_destroy mutex_lock mutex_unlock cond_wait cond_broadcast once key_create getspecific
        setspecific)
  target_compile_definitions(module_threads PRIVATE pthread_${function}=module_${function})
endforeach()
qp_test(module_threads_tests SOURCES module_threads_test.cpp DEPENDS module_threads LABELS windows-only)
