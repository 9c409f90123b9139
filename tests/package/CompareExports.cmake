# Compares what the library exports with the checked-in list, name by name.
# LIBRARY; OBJDUMP or NM, for a DLL or a shared library; CXXFILT; EXPECTED: the list's file.
if(OBJDUMP)
  execute_process(COMMAND ${OBJDUMP} -p ${LIBRARY} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCH "\\[Ordinal/Name Pointer\\] Table[^\n]*\n(\t[^\n]*\n)+" text "${text}")
  string(REGEX MATCHALL "[^ ]+\n" names "${text}")
  list(POP_FRONT names) # the heading
else()
  execute_process(COMMAND ${NM} -D --defined-only --format=posix ${LIBRARY} OUTPUT_VARIABLE text
                  COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE " [^\n]*" "" text "${text}")
  string(REGEX MATCHALL "[^\n]+\n" names "${text}")
endif()

cmake_path(GET EXPECTED STEM name)
# Constructors and destructors leave the library under several names that read alike.
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/exported-names-of-${name}.txt ${names})
execute_process(COMMAND ${CXXFILT} INPUT_FILE ${CMAKE_CURRENT_BINARY_DIR}/exported-names-of-${name}.txt OUTPUT_VARIABLE found
                COMMAND_ERROR_IS_FATAL ANY)
string(STRIP "${found}" found)
string(REPLACE "\n" ";" found "${found}")
list(REMOVE_DUPLICATES found)
list(SORT found)

file(STRINGS ${EXPECTED} expected)
list(SORT expected)
if(found STREQUAL "")
  message(FATAL_ERROR "no export found in ${LIBRARY}")
endif()
set(missing ${expected})
list(REMOVE_ITEM missing ${found})
set(surplus ${found})
list(REMOVE_ITEM surplus ${expected})
if(missing OR surplus)
  list(JOIN missing "\n  " missing)
  list(JOIN surplus "\n  " surplus)
  message(FATAL_ERROR "not exported:\n  ${missing}\nexported, but not in the list:\n  ${surplus}")
endif()
