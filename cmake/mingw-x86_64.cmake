# Cross-builds 64-bit programs for Windows with Debian's g++-mingw-w64-x86-64. No file of the compiler is needed to run them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
