# Configures, builds and runs the example host, and looks at its drawing.
# PROJECT, BUILD, CONFIG, GENERATOR; SETTINGS: options of CMake; EMULATOR: what the program runs under, or empty.
# MOVED_FROM, MOVED_TO: a folder to be moved first.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

if(MOVED_FROM)
  file(REMOVE_RECURSE ${MOVED_TO})
  cmake_path(GET MOVED_TO PARENT_PATH parent)
  file(MAKE_DIRECTORY ${parent})
  file(RENAME ${MOVED_FROM} ${MOVED_TO})
endif()

file(REMOVE_RECURSE ${BUILD})
run(${CMAKE_COMMAND} -S ${PROJECT} -B ${BUILD} -G ${GENERATOR} -DCMAKE_BUILD_TYPE=${CONFIG}
    -DCMAKE_RUNTIME_OUTPUT_DIRECTORY=${BUILD}/run -DCMAKE_CXX_STANDARD=11 -DCMAKE_CXX_STANDARD_REQUIRED=ON
    -DCMAKE_CXX_EXTENSIONS=OFF ${SETTINGS})
run(${CMAKE_COMMAND} --build ${BUILD} --config ${CONFIG} --parallel 2)

run_program(${BUILD}/run consumer)
