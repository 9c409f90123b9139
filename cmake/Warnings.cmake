option(RASTERPLANWRITER_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)

# Warnings of our own targets; a host that adds us with add_subdirectory keeps its own.
function(rasterplanwriter_warnings target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /permissive- /utf-8)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion)
    if(NOT CMAKE_UNITY_BUILD) # which puts a source below others, whose names it hides without meaning them
      target_compile_options(${target} PRIVATE -Wshadow)
    elseif(CMAKE_CXX_COMPILER_ID STREQUAL "GNU") # which takes such a source for a header
      target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    endif()
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # It takes the standard library's own copying of short texts for an overrun.
    target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-restrict -Wno-stringop-overread
                                             -Wno-stringop-overflow)
  endif()
  set_target_properties(${target} PROPERTIES COMPILE_WARNING_AS_ERROR ${RASTERPLANWRITER_WARNINGS_AS_ERRORS})
endfunction()
