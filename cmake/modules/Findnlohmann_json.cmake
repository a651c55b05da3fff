# In a cross-build: nlohmann_json::nlohmann_json from this machine's headers.
include(HeaderLibrary)
include(FindPackageHandleStandardArgs)
formwizard_header_library(nlohmann_json::nlohmann_json nlohmann json.hpp)
find_package_handle_standard_args(nlohmann_json REQUIRED_VARS FORMWIZARD_nlohmann_HEADERS)
