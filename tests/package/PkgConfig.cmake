# Compiles the example host with what pkg-config says, runs it, and looks at its drawing.
# PREFIX, LIBRARIES: where the library is installed, and the folder of libraries there; KIND: the one that is wanted;
# OPTIONS: of pkg-config; PACKAGE, PKGCONF, COMPILER, FLAGS, SOURCE, FOLDER; WINDOWS; EMULATOR.
# BUILD, SETTINGS: a build that is configured once more, and installed at PREFIX, first.
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)
separate_arguments(FLAGS UNIX_COMMAND "${FLAGS}")

if(BUILD)
  file(REMOVE_RECURSE ${PREFIX})
  run(${CMAKE_COMMAND} ${SETTINGS} ${BUILD})
  run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX})
endif()
cmake_path(ABSOLUTE_PATH LIBRARIES BASE_DIRECTORY ${PREFIX})

# ask(<variable> <argument>...): what pkg-config answers, as a shell would read it.
set(ENV{PKG_CONFIG_PATH} "")
set(ENV{PKG_CONFIG_LIBDIR} ${LIBRARIES}/pkgconfig)
function(ask result)
  execute_process(
    COMMAND ${PKGCONF} ${ARGN} ${PACKAGE}
    OUTPUT_VARIABLE said
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(words UNIX_COMMAND "${said}")
  message(STATUS "pkg-config ${ARGN} ${PACKAGE}: ${said}")
  set(${result} "${words}" PARENT_SCOPE)
endfunction()

ask(compile ${OPTIONS} --cflags)
ask(link ${OPTIONS} --libs)
ask(template --variable=template)
ask(libraries --variable=libdir)
if(NOT EXISTS "${template}")
  message(FATAL_ERROR "there is no template ${template}")
endif()

file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
if(KIND STREQUAL "static")
  if(NOT "-DRASTERPLANWRITER_STATIC" IN_LIST compile)
    message(FATAL_ERROR "the host is not told that the library is static")
  endif()
  list(PREPEND link -Wl,-Bstatic)
  list(APPEND link -Wl,-Bdynamic)
  file(COPY ${template} DESTINATION ${FOLDER})
else()
  if("-DRASTERPLANWRITER_STATIC" IN_LIST compile)
    message(FATAL_ERROR "the host is told that the library is static")
  endif()
  if(NOT WINDOWS)
    list(APPEND link "-Wl,-rpath,${libraries}")
  endif()
  if(WINDOWS)
    file(GLOB dlls ${PREFIX}/bin/*.dll)
    file(COPY ${dlls} ${template} DESTINATION ${FOLDER})
  endif()
endif()
if(WINDOWS)
  list(APPEND link -static-libgcc -Wl,-Bstatic) # the compiler's own libraries, which Windows does not have
endif()
run_in(${FOLDER} ${COMPILER} ${FLAGS} ${compile} ${SOURCE} -o consumer ${link})
run_program(${FOLDER} consumer)
