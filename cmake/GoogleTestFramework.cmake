# GoogleTest: the installed one, or, where the target has none, built from its sources as Debian packages them.
if(NOT CMAKE_CROSSCOMPILING)
  find_package(GTest REQUIRED)
  return()
endif()

find_path(GOOGLETEST_SOURCES googletest/include/gtest/gtest.h PATHS /usr/src/googletest NO_CMAKE_FIND_ROOT_PATH
                                                                                         REQUIRED)
block()
  set(BUILD_SHARED_LIBS OFF)
  set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
  set(BUILD_GMOCK OFF)
  set(INSTALL_GTEST OFF)
  add_subdirectory(${GOOGLETEST_SOURCES} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
endblock()
