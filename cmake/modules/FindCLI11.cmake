# In a cross-build: CLI11::CLI11 from this machine's headers.
include(HeaderLibrary)
include(FindPackageHandleStandardArgs)
formwizard_header_library(CLI11::CLI11 CLI CLI.hpp)
find_package_handle_standard_args(CLI11 REQUIRED_VARS FORMWIZARD_CLI_HEADERS)
