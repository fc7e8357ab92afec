# qp_sqlite: the database of the reference host. Natively the system's library; for Windows, where there is no package of
# it, a library of its own from SQLite's source in one file, which tools/fetch-sqlite leaves in QP_SQLITE_DIR.

if(WIN32)
  set(QP_SQLITE_DIR ${CMAKE_SOURCE_DIR}/build/sqlite3 CACHE PATH "Folder of sqlite3.c and sqlite3.h")
  if(NOT EXISTS ${QP_SQLITE_DIR}/sqlite3.c)
    message(FATAL_ERROR "${QP_SQLITE_DIR}/sqlite3.c is missing: run tools/fetch-sqlite once")
  endif()
  add_library(qp_sqlite STATIC ${QP_SQLITE_DIR}/sqlite3.c)
  target_include_directories(qp_sqlite SYSTEM PUBLIC ${QP_SQLITE_DIR})
  target_compile_definitions(qp_sqlite PRIVATE SQLITE_THREADSAFE=1 SQLITE_OMIT_LOAD_EXTENSION)
  target_compile_options(qp_sqlite PRIVATE -O2 -w)
else()
  find_package(SQLite3 REQUIRED)
  add_library(qp_sqlite INTERFACE)
  target_link_libraries(qp_sqlite INTERFACE SQLite::SQLite3)
endif()
