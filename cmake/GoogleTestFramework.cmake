# GoogleTest: the installed one, or, where the target has none, built from its sources as Debian packages them.
include(GoogleTest)

# rasterplanwriter_discover_tests(<program> [PREFIX <text>] [FILTER <filter of GoogleTest>])
# The tests of a program for ctest: each in a process of its own, so that none leans on another. Under an emulator a
# process costs more than most tests, and every start is one that can fail: there the program runs once.
function(rasterplanwriter_discover_tests program)
  cmake_parse_arguments(PARSE_ARGV 1 own "" "PREFIX;FILTER" "")
  if(NOT own_FILTER)
    set(own_FILTER *)
  endif()
  if(CMAKE_CROSSCOMPILING)
    add_test(NAME ${own_PREFIX}${program} COMMAND ${program} --gtest_filter=${own_FILTER})
    set_tests_properties(${own_PREFIX}${program} PROPERTIES TIMEOUT 600)
  else()
    gtest_discover_tests(${program} TEST_PREFIX "${own_PREFIX}" TEST_FILTER "${own_FILTER}" DISCOVERY_TIMEOUT 60
                         PROPERTIES TIMEOUT 120)
  endif()
endfunction()

if(NOT CMAKE_CROSSCOMPILING)
  find_package(GTest QUIET)
  rasterplanwriter_needs(TESTS GoogleTest GTest_FOUND)
  return()
endif()

find_path(GOOGLETEST_SOURCES googletest/include/gtest/gtest.h PATHS /usr/src/googletest NO_CMAKE_FIND_ROOT_PATH)
rasterplanwriter_needs(TESTS "the sources of GoogleTest" GOOGLETEST_SOURCES)
block()
  set(BUILD_SHARED_LIBS OFF)
  set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
  set(BUILD_GMOCK OFF)
  set(INSTALL_GTEST OFF)
  add_subdirectory(${GOOGLETEST_SOURCES} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
endblock()
