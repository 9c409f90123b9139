# rasterplanwriter_needs(<TOOL|TESTS|BENCH|PYTHON> [<name> <variable>]...): stops when one of the variables is false and says
# which of the named things are missing, what installs them on Debian and which option does without.
function(rasterplanwriter_needs part)
  set(missing "")
  while(ARGN)
    list(POP_FRONT ARGN name variable)
    if(NOT ${variable})
      list(APPEND missing ${name})
    endif()
  endwhile()
  if(missing STREQUAL "")
    return()
  endif()

  set(title_TOOL "The command-line host needs")
  set(groups_TOOL build)
  set(title_TESTS "The tests need")
  set(groups_TESTS "build test")
  set(title_BENCH "The benchmarks need")
  set(groups_BENCH "build bench")
  set(title_PYTHON "The Python module needs")
  set(groups_PYTHON "build python")
  if(CMAKE_CROSSCOMPILING)
    set(groups_${part} "build windows")
  endif()
  list(REMOVE_DUPLICATES missing)
  list(JOIN missing ", " missing)
  message(
    FATAL_ERROR
      "${title_${part}} what is not installed: ${missing}. On Debian 12 \"scripts/install-deps ${groups_${part}}\" "
      "installs it. To do without, add: -DRASTERPLANWRITER_BUILD_${part}=OFF")
endfunction()
