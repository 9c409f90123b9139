# Runs a host that writes some drawings and compares them byte for byte with those of a folder.
# COMMAND: the host, its words between "|"; DRAWINGS: their names, likewise; FOLDER: one for this test.
# EXPECTED: the folder of the right drawings, or the command of a host that writes them into the current folder.
include(${CMAKE_CURRENT_LIST_DIR}/../package/Run.cmake)
foreach(list COMMAND DRAWINGS EXPECTED)
  string(REPLACE "|" ";" ${list} "${${list}}")
endforeach()

file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER}/expected)
run_in(${FOLDER} ${COMMAND})
if(NOT IS_DIRECTORY "${EXPECTED}")
  run_in(${FOLDER}/expected ${EXPECTED})
  set(EXPECTED ${FOLDER}/expected)
endif()
foreach(drawing IN LISTS DRAWINGS)
  run(${CMAKE_COMMAND} -E compare_files ${EXPECTED}/${drawing}.dxf ${FOLDER}/${drawing}.dxf)
endforeach()
