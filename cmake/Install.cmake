include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(libraries RasterPlanWriter)
if(RASTERPLANWRITER_BUILD_C)
  list(APPEND libraries RasterPlanWriterC)
endif()
foreach(library IN LISTS libraries)
  # The template is looked for beside the file that holds the library's code: a DLL, a shared library, or, with the
  # static library, the program.
  get_target_property(type ${library} TYPE)
  if(type STREQUAL "SHARED_LIBRARY" AND NOT WIN32)
    set(template_folder_of_${library} ${CMAKE_INSTALL_LIBDIR})
  else()
    set(template_folder_of_${library} ${CMAKE_INSTALL_BINDIR})
  endif()
  install(
    TARGETS ${library}
    EXPORT RasterPlanWriterTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RESOURCE DESTINATION ${template_folder_of_${library}}
    INCLUDES
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endforeach()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/RasterPlanWriter DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${PROJECT_BINARY_DIR}/include/RasterPlanWriter/Export.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/RasterPlanWriter)

if(RASTERPLANWRITER_BUILD_C)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/RasterPlanWriterC DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  if(WIN32)
    install(FILES ${PROJECT_SOURCE_DIR}/src/c/RasterPlanWriterC.def DESTINATION ${CMAKE_INSTALL_LIBDIR})
  endif()
endif()

cmake_path(GET RasterPlanWriter_TEMPLATE FILENAME template_name)
set(installed_template ${template_folder_of_RasterPlanWriter}/${template_name})

if(RASTERPLANWRITER_BUILD_TOOL)
  if(BUILD_SHARED_LIBS AND NOT WIN32)
    # The tool finds its library wherever the folder is unpacked.
    file(RELATIVE_PATH libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(rasterplan PROPERTIES INSTALL_RPATH $ORIGIN/${libraries})
  endif()
  install(TARGETS rasterplan RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/resources/site.schema.json DESTINATION ${CMAKE_INSTALL_DATADIR}/rasterplan)
  if(NOT WIN32)
    install(FILES ${RasterPlanWriter_MANUAL} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(
      FILES ${PROJECT_SOURCE_DIR}/tools/rasterplan/manual/rasterplan.bash
      DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
      RENAME rasterplan)
  endif()
endif()

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/RasterPlanWriter)
set(package_files ${PROJECT_BINARY_DIR}/package)
install(
  EXPORT RasterPlanWriterTargets
  NAMESPACE RasterPlanWriter::
  DESTINATION ${package_folder})
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/RasterPlanWriterConfig.cmake.in ${package_files}/RasterPlanWriterConfig.cmake
  INSTALL_DESTINATION ${package_folder}
  PATH_VARS installed_template)
write_basic_package_version_file(${package_files}/RasterPlanWriterConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(
  FILES ${package_files}/RasterPlanWriterConfig.cmake ${package_files}/RasterPlanWriterConfigVersion.cmake
        ${CMAKE_CURRENT_LIST_DIR}/RasterPlanWriterDeploy.cmake
  DESTINATION ${package_folder})
