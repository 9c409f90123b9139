# The archive for Linux and for 64-bit Windows: what is installed and, in the same folder, a first page, the guide, the
# examples, and the notices of those whose work is in the programs. That for Linux takes its shared library from another
# build, and runs on other systems than this one.
set(RASTERPLANWRITER_SHARED_BUILD "" CACHE PATH "Build of the shared library that the Linux archive holds beside this one's")
if(NOT RASTERPLANWRITER_BUILD_TOOL OR NOT RASTERPLANWRITER_BUILD_C OR NOT MINGW AND NOT RASTERPLANWRITER_SHARED_BUILD)
  return()
endif()

# Packages of the building system, and the names that their notices get.
set(notices libcli11-dev CLI11 nlohmann-json3-dev nlohmann-json)
if(WIN32)
  set(system windows)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME RasterPlanWriter-${RasterPlanWriter_VERSION_TEXT}-windows-x64)
  list(APPEND notices mingw-w64-x86-64-dev mingw-w64 gcc-mingw-w64-base gcc)
else()
  set(system linux)
  set(CPACK_GENERATOR TGZ)
  set(CPACK_PACKAGE_FILE_NAME RasterPlanWriter-${RasterPlanWriter_VERSION_TEXT}-linux-${CMAKE_SYSTEM_PROCESSOR})
  list(APPEND notices libjpeg62-turbo-dev libjpeg-turbo libpng-dev libpng zlib1g-dev zlib)
endif()

set(in_archive_only COMPONENT archive EXCLUDE_FROM_ALL)
configure_file(${PROJECT_SOURCE_DIR}/docs/packed/${system}.md.in ${PROJECT_BINARY_DIR}/packed/README.md @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/packed/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION . ${in_archive_only})
install(
  DIRECTORY ${PROJECT_SOURCE_DIR}/docs
  DESTINATION . ${in_archive_only}
  FILES_MATCHING
  PATTERN *.md
  PATTERN pictures/*.png
  PATTERN pictures/*.svg
  PATTERN pictures/README.md EXCLUDE
  PATTERN packed EXCLUDE
  PATTERN doxygen EXCLUDE)
install(
  DIRECTORY ${PROJECT_SOURCE_DIR}/examples
  DESTINATION . ${in_archive_only}
  FILES_MATCHING
  PATTERN README.md
  PATTERN SITE.json
  PATTERN *.png
  PATTERN *.py
  PATTERN CMakeLists.txt
  PATTERN main.c
  PATTERN main.cpp
  PATTERN South.cs
  PATTERN __pycache__ EXCLUDE)
while(notices)
  list(POP_FRONT notices package name)
  install(FILES /usr/share/doc/${package}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME ${name}-copyright
          ${in_archive_only})
endwhile()

set(CPACK_PACKAGE_NAME RasterPlanWriter)
set(CPACK_PACKAGE_VENDOR RasterPlanWriter)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_INSTALL_CMAKE_PROJECTS ${PROJECT_BINARY_DIR} RasterPlanWriter ALL / ${PROJECT_BINARY_DIR} RasterPlanWriter archive /)
if(RASTERPLANWRITER_SHARED_BUILD)
  list(PREPEND CPACK_INSTALL_CMAKE_PROJECTS ${RASTERPLANWRITER_SHARED_BUILD} RasterPlanWriter ALL /)
endif()
include(CPack)
