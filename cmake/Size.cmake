# What is called once for a user's click or a line of arguments is compiled for size, not for speed.
function(formwizard_compile_for_size)
  if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT MSVC)
    foreach(target IN LISTS ARGN)
      target_compile_options(${target} PRIVATE -Os)
    endforeach()
  endif()
endfunction()

# Programs for users are small: what nothing calls is left out of them, and they are optimized as a whole when they are
# linked. The latter not where tests are built besides, each of which would then be optimized as a whole, too.
if(MSVC OR NOT CMAKE_BUILD_TYPE STREQUAL "Release")
  return()
endif()

add_compile_options(-ffunction-sections -fdata-sections)
add_link_options(-Wl,--gc-sections)

if(NOT DEFINED BUILD_TESTING OR BUILD_TESTING)
  return()
endif()
include(CheckIPOSupported)
check_ipo_supported(RESULT FORMWIZARD_OPTIMIZE_WHOLE LANGUAGES CXX)
set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ${FORMWIZARD_OPTIMIZE_WHOLE})
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees copies of impossible lengths in the whole where there are none.
  add_link_options(-Wno-stringop-overflow)
endif()
