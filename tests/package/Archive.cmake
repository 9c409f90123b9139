# Packs a build tree, unpacks the archive in a folder with an unusual name, compares what lies there with a list, follows the
# links of its documents, runs the commands of its first page, and builds its example host.
# BUILD, CONFIG, FOLDER; SOURCES: the project's folder; EXPECTED: the list's file; LIBRARIES: the folder that the list calls lib;
# PYTHON; EMULATOR: what the program runs under, or empty. OBJDUMP: for Linux, to see what the files need.
# KERNEL32: for Windows, an import library of the system's functions, with which a host of the C library is built as by
# Visual Studio.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
run(${CMAKE_CPACK_COMMAND} --config ${BUILD}/CPackConfig.cmake -C ${CONFIG} -B ${FOLDER})
file(GLOB archive ${FOLDER}/RasterPlanWriter-*)
set(place "${FOLDER}/Pläne 図面")
file(MAKE_DIRECTORY ${place})
run_in(${place} ${CMAKE_COMMAND} -E tar xf ${archive})
file(GLOB unpacked ${place}/*)
string(REGEX REPLACE "^.*/|(\\.tar\\.gz|\\.zip)$" "" name "${archive}")
if(NOT unpacked STREQUAL "${place}/${name}")
  message(FATAL_ERROR "${archive} holds: ${unpacked}")
endif()

# What every install holds has a list of its own, and the pages are those of the sources.
file(GLOB_RECURSE found LIST_DIRECTORIES FALSE RELATIVE ${unpacked} ${unpacked}/*)
list(TRANSFORM found REPLACE "^${LIBRARIES}/" "lib/")
list(FILTER found EXCLUDE REGEX "^(include|lib/cmake|lib/pkgconfig)/")
file(GLOB pages RELATIVE ${SOURCES} ${SOURCES}/docs/*.md)
file(STRINGS ${EXPECTED} expected ENCODING UTF-8)
list(APPEND expected ${pages})
list(SORT found)
list(SORT expected)
if(NOT found STREQUAL expected)
  list(JOIN found "\n" found)
  message(FATAL_ERROR "${archive} does not hold the pages of docs and what ${EXPECTED} lists, but:\n${found}")
endif()
run(${PYTHON} -B ${SOURCES}/tests/docs/links.py ${unpacked})

file(STRINGS ${unpacked}/README.md commands REGEX "^bin.rasterplan ")
file(GLOB program ${unpacked}/bin/rasterplan ${unpacked}/bin/rasterplan.exe)
foreach(command IN LISTS commands)
  string(REPLACE " " ";" command "${command}")
  list(POP_FRONT command)
  run_in(${unpacked} ${EMULATOR} ${program} ${command})
endforeach()
foreach(site site elevation)
  file(STRINGS ${unpacked}/${site}.dxf pictures REGEX "^AcDbRasterImage$")
  list(LENGTH pictures count)
  math(EXPR count "${count} - 1") # the class has the name too
  file(STRINGS ${unpacked}/examples/${site}/SITE.json listed REGEX "\"path\"")
  list(LENGTH listed expected)
  if(NOT count EQUAL expected)
    message(FATAL_ERROR "${unpacked}/${site}.dxf holds ${count} pictures, ${expected} are listed")
  endif()
endforeach()
file(SIZE ${unpacked}/site.html size)
if(size LESS 500000) # three.js alone has more
  message(FATAL_ERROR "${unpacked}/site.html has ${size} bytes only")
endif()

if(OBJDUMP)
  file(GLOB files ${program} ${unpacked}/${LIBRARIES}/*.so)
  list(JOIN files "|" files)
  run(${CMAKE_COMMAND} "-DFILES=${files}" -DOBJDUMP=${OBJDUMP} -P ${CMAKE_CURRENT_LIST_DIR}/Portable.cmake)

  foreach(is_shared ON OFF)
    set(build ${FOLDER}/shared-${is_shared})
    run(${CMAKE_COMMAND} -S ${unpacked}/examples/consumer -B ${build} -G Ninja -DCMAKE_PREFIX_PATH=${unpacked}
        -DRasterPlanWriter_SHARED_LIBS=${is_shared})
    run(${CMAKE_COMMAND} --build ${build})
    run_program(${build} consumer)
  endforeach()
endif()

if(KERNEL32)
  run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/msvc -B ${FOLDER}/msvc -G Ninja -DCMAKE_PREFIX_PATH=${unpacked}
      -DKERNEL32=${KERNEL32})
  run(${CMAKE_COMMAND} --build ${FOLDER}/msvc)
  run_in(${FOLDER}/msvc ${EMULATOR} ${FOLDER}/msvc/host.exe)
  run(${CMAKE_COMMAND} -E compare_files ${FOLDER}/msvc/flat-proposed.dxf ${SOURCES}/tests/acceptance/golden/flat-proposed.dxf)
endif()
