# Puts the template into the build tree beside each library, or beside the programs that hold the static one's code.
set(folders "")
if(BUILD_SHARED_LIBS)
  list(APPEND folders $<TARGET_FILE_DIR:RasterPlanWriter>)
elseif(PROJECT_IS_TOP_LEVEL)
  get_property(several GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
  list(APPEND folders ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}$<${several}:/$<CONFIG>>)
endif() # otherwise the project that adds this one calls rasterplanwriter_deploy for its programs
if(RASTERPLANWRITER_BUILD_C)
  list(APPEND folders $<TARGET_FILE_DIR:RasterPlanWriterC>)
endif()
if(NOT folders)
  return()
endif()

set(copies "")
foreach(folder IN LISTS folders)
  list(APPEND copies COMMAND ${CMAKE_COMMAND} -E make_directory ${folder})
  list(APPEND copies COMMAND ${CMAKE_COMMAND} -E copy_if_different ${RasterPlanWriter_TEMPLATE} ${folder})
endforeach()
set(stamp ${CMAKE_CURRENT_BINARY_DIR}/template-$<CONFIG>.stamp)
add_custom_command(
  OUTPUT ${stamp} ${copies}
  COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
  DEPENDS ${RasterPlanWriter_TEMPLATE}
  COMMENT "Copying the template"
  VERBATIM)
add_custom_target(RasterPlanWriterTemplate DEPENDS ${stamp})
add_dependencies(RasterPlanWriter RasterPlanWriterTemplate)
if(RASTERPLANWRITER_BUILD_C)
  add_dependencies(RasterPlanWriterC RasterPlanWriterTemplate)
endif()
