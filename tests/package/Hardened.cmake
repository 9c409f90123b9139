# Looks in a library or program as it was built for what protects it from overruns.
# FILE; OBJDUMP; READELF: for Linux; ENTRY: the symbol of a function that others call, where the compiler marks the
# targets of jumps; FORTIFIED: whether the C library's checked functions are expected; PROGRAM: whether it is one.

# expect(<what is read> <words>...): each must be there.
function(expect tool text)
  foreach(words IN LISTS ARGN)
    if(NOT text MATCHES "${words}")
      message(SEND_ERROR "${FILE}: ${tool} does not show ${words}")
    endif()
  endforeach()
endfunction()

if(READELF)
  execute_process(COMMAND ${READELF} -lWd ${FILE} OUTPUT_VARIABLE segments COMMAND_ERROR_IS_FATAL ANY)
  # Not executable stack, tables that are read-only once the file is loaded, all of them filled by then.
  expect("readelf" "${segments}" "GNU_STACK[^\n]* RW  ?0" "GNU_RELRO" "FLAGS_1[^\n]* NOW" "Elf file type is DYN")
  if(PROGRAM)
    expect("readelf" "${segments}" "FLAGS_1[^\n]* PIE")
  endif()
  execute_process(COMMAND ${OBJDUMP} -T ${FILE} OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
  expect("objdump" "${symbols}" __stack_chk_fail)
  if(FORTIFIED)
    expect("objdump" "${symbols}" "UND[^\n]* __[a-z]+_chk\n")
  endif()
  if(ENTRY)
    execute_process(COMMAND ${OBJDUMP} -d --no-show-raw-insn --disassemble=${ENTRY} ${FILE} OUTPUT_VARIABLE code
                    COMMAND_ERROR_IS_FATAL ANY)
    expect("objdump" "${code}" "<${ENTRY}>:\n[^\n]*endbr64")
  endif()
else()
  execute_process(COMMAND ${OBJDUMP} -p -h ${FILE} OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
  # Any address, of 64 bits, no executable data; the table of relocations that this takes.
  expect("objdump" "${headers}" DYNAMIC_BASE HIGH_ENTROPY_VA NX_COMPAT " \\.reloc ")
endif()
