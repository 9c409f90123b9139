# Exports the examples with the program of this build and with one built for the machine that runs the test, and
# compares the drawings byte for byte.
# PROGRAM, EMULATOR; SOURCES; FOLDER; NATIVE: the other program, built here when empty; GENERATOR: for that.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

file(MAKE_DIRECTORY ${FOLDER})
if(NOT NATIVE)
  set(build ${FOLDER}/native)
  run(${CMAKE_COMMAND} -S ${SOURCES} -B ${build} -G ${GENERATOR} -DCMAKE_BUILD_TYPE=Release
      -DRASTERPLANWRITER_BUILD_TESTS=OFF -DRASTERPLANWRITER_INSTALL=OFF)
  run(${CMAKE_COMMAND} --build ${build} --config Release --parallel 2 --target rasterplan)
  file(GLOB_RECURSE NATIVE ${build}/bin/rasterplan)
endif()

# same(<arguments of the program>...): the drawing's path is added.
function(same)
  file(REMOVE ${FOLDER}/native.dxf ${FOLDER}/emulated.dxf)
  run_in(${FOLDER} ${NATIVE} ${ARGN} native.dxf)
  run_in(${FOLDER} ${EMULATOR} ${PROGRAM} ${ARGN} emulated.dxf)
  run(${CMAKE_COMMAND} -E compare_files ${FOLDER}/native.dxf ${FOLDER}/emulated.dxf)
endfunction()

set(site ${SOURCES}/examples/site/SITE.json)
set(elevation ${SOURCES}/examples/elevation/SITE.json)
# Absolute paths differ: one system has drives.
same(3d --paths as-given ${site})
same(2d --paths as-given --origin 4468215.8,5333642.0,510.0 --x-axis 0.866,0.5,0 --y-axis 0,0,1 ${site})
same(3d --paths as-given ${elevation})
same(2d --paths as-given ${elevation})
