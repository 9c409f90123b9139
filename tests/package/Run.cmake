# Lists come with their members between "|".
string(REPLACE "|" ";" EMULATOR "${EMULATOR}")
string(REPLACE "|" ";" SETTINGS "${SETTINGS}")

# run(<command>...): runs a command; ends the test when it fails.
function(run)
  list(JOIN ARGN " " shown)
  message(STATUS "${shown}")
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# run_in(<folder> <command>...): the same, standing in a folder.
function(run_in folder)
  list(JOIN ARGN " " shown)
  message(STATUS "${shown}")
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${folder} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# run_program(<folder> <name>): runs the example host that lies in a folder or below it, and looks at its drawing.
function(run_program folder name)
  file(GLOB_RECURSE program ${folder}/${name} ${folder}/${name}.exe)
  file(REMOVE ${folder}/south.dxf)
  run_in(${folder} ${EMULATOR} ${program})
  file(READ ${folder}/south.dxf drawing) # line ends come as \n
  foreach(part "^0\nSECTION\n" "\nAcDbRasterImage\n" "\nsouth\\.png\n" "\nEOF\n")
    if(NOT drawing MATCHES "${part}")
      message(FATAL_ERROR "${folder}/south.dxf does not hold ${part}")
    endif()
  endforeach()
endfunction()
