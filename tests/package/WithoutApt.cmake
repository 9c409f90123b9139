# On a system without apt every script that installs says so, and what it needs, before it does anything else.
# SCRIPTS: their folder; FOLDER: one for this test.
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
foreach(program sh env dirname mkdir rm id uname date basename cat)
  find_program(place ${program} REQUIRED NO_CACHE)
  file(CREATE_LINK ${place} ${FOLDER}/${program} SYMBOLIC)
  unset(place)
endforeach()

foreach(script demo test lint bench package-debian package-linux package-python package-windows)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env PATH=${FOLDER} ${FOLDER}/sh ${SCRIPTS}/${script}
    RESULT_VARIABLE status
    OUTPUT_VARIABLE said
    ERROR_VARIABLE complaint)
  if(status EQUAL 0 OR NOT said STREQUAL "" OR NOT complaint MATCHES "^install-deps: this system has no apt"
     OR NOT complaint MATCHES "cmake ninja-build")
    message(SEND_ERROR "${script} ended with ${status}: ${said}${complaint}")
  endif()
endforeach()
