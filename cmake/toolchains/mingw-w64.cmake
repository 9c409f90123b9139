# Builds for 64-bit Windows with the mingw-w64 compiler, and runs what it built under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)

# The flavour with POSIX threads: the other one lacks parts of the standard library.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Libraries and headers come from the target's folders only, programs from the building machine.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

# Windows brings none of the compiler's runtime libraries.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static")
endforeach()

# What CMake runs itself while it looks at the compiler shares the folder of Wine's settings, by way of the
# environment.
set(WINE_PREFIX "$ENV{RASTERPLANWRITER_WINE_PREFIX}" CACHE PATH "Folder of Wine's settings")
if(NOT WINE_PREFIX)
  set_property(CACHE WINE_PREFIX PROPERTY VALUE ${CMAKE_BINARY_DIR}/wine)
endif()
set(ENV{RASTERPLANWRITER_WINE_PREFIX} ${WINE_PREFIX})
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/run-under-wine ${WINE_PREFIX})
