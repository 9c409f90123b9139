# Installs two builds, one of the shared library and one of the static, into one folder in either order, which must come
# to the same; then looks at the kinds that a project gets there, and runs the example with each.
# SHARED_BUILD, STATIC_BUILD; SHARED, STATIC: where each is installed alone; BOTH: a folder for both; CONFIG;
# PROJECT, BUILD, EXAMPLE, GENERATOR, SETTINGS, EMULATOR as for Consumer.cmake.
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

# install_both(<folder> <build>...)
function(install_both folder)
  file(REMOVE_RECURSE ${folder})
  foreach(build IN LISTS ARGN)
    run(${CMAKE_COMMAND} --install ${build} --prefix ${folder} --config ${CONFIG})
  endforeach()
endfunction()

# sums(<variable> <folder>): what lies in a folder, every file with a checksum.
function(sums result folder)
  set(all "")
  file(GLOB_RECURSE names LIST_DIRECTORIES FALSE RELATIVE ${folder} ${folder}/*)
  foreach(name IN LISTS names)
    file(SHA256 ${folder}/${name} sum)
    list(APPEND all "${name} ${sum}")
  endforeach()
  set(${result} "${all}" PARENT_SCOPE)
endfunction()

install_both(${BOTH} ${SHARED_BUILD} ${STATIC_BUILD})
install_both(${BOTH}-reversed ${STATIC_BUILD} ${SHARED_BUILD})
sums(one ${BOTH})
sums(other ${BOTH}-reversed)
if(NOT one STREQUAL other)
  set(differing ${one} ${other})
  foreach(same IN LISTS one)
    if(same IN_LIST other)
      list(REMOVE_ITEM differing ${same})
    endif()
  endforeach()
  list(JOIN differing "\n" differing)
  message(FATAL_ERROR "installed in the other order, these files differ:\n${differing}")
endif()

file(REMOVE_RECURSE ${BUILD})
run(${CMAKE_COMMAND} -S ${PROJECT} -B ${BUILD} -G ${GENERATOR} -DCMAKE_BUILD_TYPE=${CONFIG} -DBOTH=${BOTH}
    -DSHARED=${SHARED} -DSTATIC=${STATIC} -DEXAMPLE=${EXAMPLE} ${SETTINGS})
run(${CMAKE_COMMAND} --build ${BUILD} --config ${CONFIG} --parallel 2)
foreach(name shared_of_both static_of_both static_alone)
  run_program(${BUILD}/run/${name} ${name})
endforeach()
