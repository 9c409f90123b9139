# Configures the project and looks for words in what CMake says and, where that succeeds, in the cache that it leaves.
# SOURCES, BUILD, GENERATOR; SETTINGS: options of CMake; WORDS: all of these must be there; FAILS: whether it must fail;
# WITHOUT_PATH: whether CMake finds no program.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)
string(REPLACE "|" ";" WORDS "${WORDS}")

file(REMOVE_RECURSE ${BUILD})
set(surroundings --unset=CMAKE_BUILD_TYPE)
if(WITHOUT_PATH)
  file(MAKE_DIRECTORY ${BUILD}/empty)
  list(APPEND surroundings PATH=${BUILD}/empty)
endif()
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env ${surroundings} ${CMAKE_COMMAND} -S ${SOURCES} -B ${BUILD} -G ${GENERATOR} ${SETTINGS}
  RESULT_VARIABLE status
  OUTPUT_VARIABLE said
  ERROR_VARIABLE said)
if(FAILS AND status EQUAL 0 OR NOT FAILS AND NOT status EQUAL 0)
  message(FATAL_ERROR "configuring ended with ${status}:\n${said}")
endif()
string(REGEX REPLACE "[ \n]+" " " said "${said}") # CMake breaks the lines of a message
if(NOT FAILS)
  file(READ ${BUILD}/CMakeCache.txt cache)
  string(APPEND said "${cache}")
endif()
foreach(words IN LISTS WORDS)
  string(FIND "${said}" "${words}" place)
  if(place EQUAL -1)
    message(SEND_ERROR "not said: ${words}\nbut: ${said}")
  endif()
endforeach()
