# Programs for users are hardened as Debian's own are: calls that can be are checked for the size of their buffers, and
# addresses of functions are looked up when the program starts and cannot be changed after it.
if(NOT CMAKE_SYSTEM_NAME STREQUAL "Linux" OR NOT CMAKE_BUILD_TYPE STREQUAL "Release")
  return()
endif()
add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
add_link_options(-Wl,-z,relro -Wl,-z,now)
