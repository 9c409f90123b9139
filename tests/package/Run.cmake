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
