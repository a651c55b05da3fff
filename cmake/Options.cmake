# What every target of this project is compiled with.
add_library(formwizard_options INTERFACE)
target_compile_features(formwizard_options INTERFACE cxx_std_20)
set(CMAKE_CXX_EXTENSIONS OFF)
target_include_directories(formwizard_options INTERFACE ${CMAKE_SOURCE_DIR})

if(MSVC)
  target_compile_options(formwizard_options INTERFACE /W4 /utf-8 /permissive- /Zc:__cplusplus)
  target_compile_definitions(formwizard_options INTERFACE NOMINMAX _CRT_SECURE_NO_WARNINGS)
  if(FORMWIZARD_WARNINGS_AS_ERRORS)
    target_compile_options(formwizard_options INTERFACE /WX)
  endif()
else()
  target_compile_options(formwizard_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees overlapping copies in std::string where there are none (its bug 105651), only when optimizing.
    target_compile_options(formwizard_options INTERFACE -Wno-restrict)
  endif()
  if(FORMWIZARD_WARNINGS_AS_ERRORS)
    target_compile_options(formwizard_options INTERFACE -Werror)
  endif()
endif()

if(FORMWIZARD_SANITIZE)
  target_compile_options(formwizard_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                     -fno-omit-frame-pointer)
  target_link_options(formwizard_options INTERFACE -fsanitize=address,undefined)
endif()
