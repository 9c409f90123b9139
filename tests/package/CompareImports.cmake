# Looks at which DLLs a program or DLL needs: those that Windows brings, and our own.
# FILE; OBJDUMP
execute_process(COMMAND ${OBJDUMP} -p ${FILE} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "DLL Name: [^\n]+" needed "${text}")
list(TRANSFORM needed REPLACE "DLL Name: " "")
if(needed STREQUAL "")
  message(FATAL_ERROR "no import table found in ${FILE}")
endif()
foreach(dll IN LISTS needed)
  if(NOT dll MATCHES "^(KERNEL32|msvcrt|ole32|SHELL32|RasterPlanWriter)\\.dll$")
    message(SEND_ERROR "${FILE} needs ${dll}")
  endif()
endforeach()
