# The first heading of CHANGELOG.md names the version and its day, or that it has none; everything else that shows or
# compares a version agrees.
# SOURCES; PREFIX: where the package is installed; LIBRARIES: the folder of libraries there; MANUAL: the manual page;
# PKGCONF; FOLDER: one for this test; TOOL, EMULATOR: rasterplan and what it runs under.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

file(STRINGS ${SOURCES}/CHANGELOG.md heading REGEX "^## " LIMIT_COUNT 1 ENCODING UTF-8)
if(NOT heading MATCHES "^## \\[([0-9]+)\\.([0-9]+)\\.([0-9]+)\\] - (unreleased|20[0-9][0-9]-[0-9][0-9]-[0-9][0-9])$")
  message(FATAL_ERROR "the first heading of CHANGELOG.md is no version and its day: ${heading}")
endif()
set(major ${CMAKE_MATCH_1})
set(minor ${CMAKE_MATCH_2})
set(patch ${CMAKE_MATCH_3})
set(number ${major}.${minor}.${patch})
set(text ${number})
set(debian "rasterplanwriter (${number}) unstable")
if(CMAKE_MATCH_4 STREQUAL "unreleased")
  set(text ${number}-unreleased)
  set(debian "rasterplanwriter (${number}~unreleased) UNRELEASED")
endif()

# agree(<what> <found> <wanted>)
function(agree what found wanted)
  if(NOT found STREQUAL wanted)
    message(SEND_ERROR "${what}: \"${found}\", but CHANGELOG.md wants \"${wanted}\"")
  endif()
endfunction()

# agree_with_line(<file> <regular expression with a group> <wanted>): the group, in the first line that fits.
function(agree_with_line file expression wanted)
  file(STRINGS ${file} line REGEX "${expression}" LIMIT_COUNT 1 ENCODING UTF-8)
  string(REGEX MATCH "${expression}" ignored "${line}")
  agree(${file} "${CMAKE_MATCH_1}" "${wanted}")
endfunction()

# agree_with_output(<wanted> <command>...)
function(agree_with_output wanted)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE said OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  list(JOIN ARGN " " command)
  agree("${command}" "${said}" "${wanted}")
endfunction()

# Numbers, for comparing.
agree_with_line(${SOURCES}/CMakeLists.txt "^  VERSION ([^ ]*)$" ${number})
set(header ${PREFIX}/include/RasterPlanWriter/Version.h)
agree_with_line(${header} "VERSION_MAJOR ([0-9]+) " ${major})
agree_with_line(${header} "VERSION_MINOR ([0-9]+) " ${minor})
agree_with_line(${header} "VERSION_PATCH ([0-9]+) " ${patch})
agree_with_line(${header} "define RASTERPLANWRITER_VERSION \"(.*)\"$" ${number})
set(package ${PREFIX}/${LIBRARIES}/cmake/RasterPlanWriter/RasterPlanWriterConfigVersion.cmake)
set(PACKAGE_FIND_VERSION ${number})
include(${package})
agree(${package} ${PACKAGE_VERSION} ${number})
foreach(name rasterplanwriter rasterplanwriter-c)
  agree_with_output(${number} ${CMAKE_COMMAND} -E env PKG_CONFIG_LIBDIR=${PREFIX}/${LIBRARIES}/pkgconfig ${PKGCONF}
                    --modversion ${name})
endforeach()

# Texts, for people.
agree_with_output("rasterplan ${text}" ${EMULATOR} ${TOOL} --version)
agree_with_output(${text} ${SOURCES}/scripts/version)
agree_with_line(${SOURCES}/debian/changelog "^(rasterplanwriter [(].*[)] [A-Za-z]*)" ${debian})
if(MANUAL)
  agree_with_line(${MANUAL} "^\\.TH .*\"rasterplan ([^\"]*)\"" ${text})
endif()

# A release wants a day.
file(REMOVE_RECURSE ${FOLDER})
file(COPY ${SOURCES}/scripts/release ${SOURCES}/scripts/version DESTINATION ${FOLDER}/scripts)
file(READ ${SOURCES}/CHANGELOG.md changes)
string(REGEX REPLACE "\n## [^\n]*" "\n## [${number}] - unreleased" changes "${changes}")
file(WRITE ${FOLDER}/CHANGELOG.md "${changes}")
execute_process(COMMAND ${FOLDER}/scripts/release RESULT_VARIABLE status ERROR_VARIABLE said)
if(status EQUAL 0 OR NOT said MATCHES "^release: CHANGELOG.md has no date for ${number};")
  message(SEND_ERROR "scripts/release without a date ended with ${status}: ${said}")
endif()
