# In a cross-build: doctest::doctest from this machine's headers, and its CMake module for finding the tests.
include(HeaderLibrary)
include(FindPackageHandleStandardArgs)
formwizard_header_library(doctest::doctest doctest doctest.h)
if(TARGET doctest::doctest AND MINGW)
  # The tests have one thread, and the compiler's run time may know no other.
  set_property(TARGET doctest::doctest PROPERTY INTERFACE_COMPILE_DEFINITIONS DOCTEST_CONFIG_NO_MULTITHREADING)
endif()
find_path(FORMWIZARD_DOCTEST_MODULE doctest.cmake PATH_SUFFIXES lib/cmake/doctest NO_CMAKE_FIND_ROOT_PATH)
mark_as_advanced(FORMWIZARD_DOCTEST_MODULE)
find_package_handle_standard_args(doctest REQUIRED_VARS FORMWIZARD_doctest_HEADERS FORMWIZARD_DOCTEST_MODULE)
if(doctest_FOUND)
  list(APPEND CMAKE_MODULE_PATH ${FORMWIZARD_DOCTEST_MODULE})
endif()
