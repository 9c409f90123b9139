include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

# The shared and the static library may be installed into one folder, one after the other: each brings a file of targets
# of its own, and what both bring is the same.
#
# The template is looked for beside the file that holds the library's code. That of a shared library is its own; that of
# the static one is a program, which gets its copy from the folder of libraries.
set(template_of_shared ${CMAKE_INSTALL_LIBDIR})
set(template_of_static ${CMAKE_INSTALL_LIBDIR})
if(WIN32)
  set(template_of_shared ${CMAKE_INSTALL_BINDIR})
endif()

# rasterplanwriter_install(<library> <its file of targets> <folder of the template>)
function(rasterplanwriter_install library targets template_folder)
  install(
    TARGETS ${library}
    EXPORT ${targets}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RESOURCE DESTINATION ${template_folder}
    INCLUDES
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  install(
    EXPORT ${targets}
    NAMESPACE RasterPlanWriter::
    DESTINATION ${package_folder})
endfunction()

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/RasterPlanWriter)
set(package_files ${PROJECT_BINARY_DIR}/package)
if(BUILD_SHARED_LIBS)
  rasterplanwriter_install(RasterPlanWriter RasterPlanWriterSharedTargets ${template_of_shared})
else()
  rasterplanwriter_install(RasterPlanWriter RasterPlanWriterStaticTargets ${template_of_static})
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/RasterPlanWriter DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${PROJECT_BINARY_DIR}/include/RasterPlanWriter/Export.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/RasterPlanWriter)

if(RASTERPLANWRITER_BUILD_C)
  rasterplanwriter_install(RasterPlanWriterC RasterPlanWriterCTargets ${template_of_shared})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/RasterPlanWriterC DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  if(WIN32)
    install(FILES ${PROJECT_SOURCE_DIR}/src/c/RasterPlanWriterC.def DESTINATION ${CMAKE_INSTALL_LIBDIR})
  endif()
endif()

if(RASTERPLANWRITER_BUILD_TOOL)
  if(BUILD_SHARED_LIBS AND NOT WIN32)
    # The tool finds its library wherever the folder is unpacked.
    file(RELATIVE_PATH libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(rasterplan PROPERTIES INSTALL_RPATH $ORIGIN/${libraries})
  endif()
  install(TARGETS rasterplan RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  if(NOT BUILD_SHARED_LIBS)
    install(FILES ${RasterPlanWriter_TEMPLATE} DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
  install(FILES ${PROJECT_SOURCE_DIR}/resources/site.schema.json DESTINATION ${CMAKE_INSTALL_DATADIR}/rasterplan)
  if(NOT WIN32)
    install(FILES ${RasterPlanWriter_MANUAL} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(
      FILES ${PROJECT_SOURCE_DIR}/tools/rasterplan/manual/rasterplan.bash
      DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
      RENAME rasterplan)
  endif()
endif()

cmake_path(GET RasterPlanWriter_TEMPLATE FILENAME template_name)
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/RasterPlanWriterConfig.cmake.in ${package_files}/RasterPlanWriterConfig.cmake
  INSTALL_DESTINATION ${package_folder}
  PATH_VARS template_of_shared template_of_static
  NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${package_files}/RasterPlanWriterConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(
  FILES ${package_files}/RasterPlanWriterConfig.cmake ${package_files}/RasterPlanWriterConfigVersion.cmake
        ${CMAKE_CURRENT_LIST_DIR}/RasterPlanWriterKind.cmake ${CMAKE_CURRENT_LIST_DIR}/RasterPlanWriterDeploy.cmake
  DESTINATION ${package_folder})
include(PkgConfig)
