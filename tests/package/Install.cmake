# Installs a build tree into a folder and compares what lies there with a list.
# BUILD, CONFIG, PREFIX; EXPECTED: the list's file; LIBRARIES: the folder that the list calls lib.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

file(REMOVE_RECURSE ${PREFIX})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX} --config ${CONFIG})

file(GLOB_RECURSE found LIST_DIRECTORIES FALSE RELATIVE ${PREFIX} ${PREFIX}/*)
list(TRANSFORM found REPLACE "^${LIBRARIES}/" "lib/")
list(TRANSFORM found REPLACE "Targets-[a-z]+\\.cmake$" "Targets-CONFIG.cmake")
list(SORT found)
file(STRINGS ${EXPECTED} expected)
if(NOT found STREQUAL expected)
  list(JOIN found "\n" found)
  message(FATAL_ERROR "The install folder does not hold what ${EXPECTED} lists, but:\n${found}")
endif()
