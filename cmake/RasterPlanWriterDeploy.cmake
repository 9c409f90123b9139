# Also part of the installed package.

# rasterplanwriter_deploy(program [library]): copies beside the program, whenever it is linked, what it needs there to
# run: with a shared library on Windows the DLL and the template, with one elsewhere nothing, with the static library
# the template, because the program then holds the code that looks for it. The library is RasterPlanWriter (the default)
# or RasterPlanWriterC.
#
# RasterPlanWriter_TEMPLATE is the template's path, for install rules.
function(rasterplanwriter_deploy program)
  set(target RasterPlanWriter::RasterPlanWriter)
  if(ARGC GREATER 1)
    set(target RasterPlanWriter::${ARGV1})
  endif()
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "SHARED_LIBRARY")
    if(NOT WIN32)
      return()
    endif()
    set(library $<TARGET_FILE:${target}>)
  endif()
  add_custom_command(
    TARGET ${program}
    POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${library} ${RasterPlanWriter_TEMPLATE} $<TARGET_FILE_DIR:${program}>
    VERBATIM)
endfunction()
