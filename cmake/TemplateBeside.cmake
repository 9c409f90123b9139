# Puts the template into the build tree beside the library, or beside the programs that hold its code.
if(BUILD_SHARED_LIBS)
  set(folder $<TARGET_FILE_DIR:RasterPlanWriter>)
elseif(PROJECT_IS_TOP_LEVEL)
  get_property(several GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
  set(folder ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}$<${several}:/$<CONFIG>>)
else()
  return() # the project that adds this one calls rasterplanwriter_deploy for its programs
endif()

set(stamp ${CMAKE_CURRENT_BINARY_DIR}/template-$<CONFIG>.stamp)
add_custom_command(
  OUTPUT ${stamp}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${RasterPlanWriter_TEMPLATE} ${folder}
  COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
  DEPENDS ${RasterPlanWriter_TEMPLATE}
  COMMENT "Copying the template"
  VERBATIM)
add_custom_target(RasterPlanWriterTemplate DEPENDS ${stamp})
add_dependencies(RasterPlanWriter RasterPlanWriterTemplate)
