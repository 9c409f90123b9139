# Before project(), which without a build program says little more than that a variable is not set.
if(CMAKE_SOURCE_DIR STREQUAL CMAKE_CURRENT_SOURCE_DIR AND CMAKE_GENERATOR MATCHES "^Ninja")
  find_program(CMAKE_MAKE_PROGRAM NAMES ninja-build ninja samu)
  if(NOT CMAKE_MAKE_PROGRAM)
    message(FATAL_ERROR "Ninja, the build program of the presets, is not installed. On Debian 12 "
                        "\"scripts/install-deps build\" installs what is missing (the package is ninja-build). "
                        "To build with make instead, add: -G \"Unix Makefiles\"")
  endif()
endif()
