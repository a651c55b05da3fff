# In a cross-build: SQLite::SQLite3, compiled for the target from the one-file source that packaging/fetch-sqlite makes.
include(FindPackageHandleStandardArgs)
set(FORMWIZARD_SQLITE_SOURCE ${PROJECT_SOURCE_DIR}/build/sqlite CACHE PATH "Folder with sqlite3.c and sqlite3.h")
find_file(FORMWIZARD_SQLITE_C sqlite3.c PATHS ${FORMWIZARD_SQLITE_SOURCE} NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
mark_as_advanced(FORMWIZARD_SQLITE_C)
find_package_handle_standard_args(SQLite3
  REQUIRED_VARS FORMWIZARD_SQLITE_C
  REASON_FAILURE_MESSAGE "run packaging/fetch-sqlite, or name a folder with sqlite3.c by FORMWIZARD_SQLITE_SOURCE")
if(SQLite3_FOUND AND NOT TARGET SQLite::SQLite3)
  add_library(formwizard_sqlite3 STATIC ${FORMWIZARD_SQLITE_C})
  target_include_directories(formwizard_sqlite3 SYSTEM PUBLIC ${FORMWIZARD_SQLITE_SOURCE})
  # One thread, no extensions, no temporary files of other programs' making.
  target_compile_definitions(formwizard_sqlite3 PRIVATE SQLITE_THREADSAFE=0 SQLITE_OMIT_LOAD_EXTENSION SQLITE_DQS=0)
  add_library(SQLite::SQLite3 ALIAS formwizard_sqlite3)
endif()
