# How the libraries are made.

# rasterplanwriter_compile(<target>): how sources of a library are compiled.
function(rasterplanwriter_compile target)
  target_compile_features(${target} PRIVATE cxx_std_20)
  set_target_properties(
    ${target}
    PROPERTIES CXX_EXTENSIONS OFF
               UNITY_BUILD OFF # the same objects as in a project that contains the library
               CXX_VISIBILITY_PRESET hidden
               VISIBILITY_INLINES_HIDDEN ON
               POSITION_INDEPENDENT_CODE ON)
  rasterplanwriter_warnings(${target})
  rasterplanwriter_harden(${target})
  # One drawing has the same bytes from every compiler: no fused multiply-add behind our back.
  if(MSVC)
    target_compile_options(${target} PRIVATE /fp:precise)
  else()
    target_compile_options(${target} PRIVATE -ffp-contract=off)
  endif()
endfunction()

# rasterplanwriter_link(<library> <version script>): how a library is linked from objects. The script names what a shared
# one offers on Linux.
function(rasterplanwriter_link library exports)
  rasterplanwriter_harden(${library})
  get_target_property(type ${library} TYPE)
  if(type STREQUAL "SHARED_LIBRARY" AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
    target_link_options(${library} PRIVATE -Wl,--version-script=${exports})
    if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize") # clang links a sanitizer's runtime to programs only
      target_link_options(${library} PRIVATE -Wl,--no-undefined)
    endif()
    set_target_properties(${library} PROPERTIES LINK_DEPENDS ${exports})
  endif()
  if(type STREQUAL "SHARED_LIBRARY" AND WIN32)
    configure_file(${PROJECT_SOURCE_DIR}/src/version.rc.in ${library}.rc @ONLY)
    target_sources(${library} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${library}.rc)
    set_target_properties(${library} PROPERTIES PREFIX "")
  endif()
  # The template is a resource, so that install rules of any project take it along, or CMake warns that they do not.
  set_target_properties(
    ${library}
    PROPERTIES LINKER_LANGUAGE CXX
               VERSION ${PROJECT_VERSION}
               SOVERSION ${PROJECT_VERSION_MAJOR}
               RESOURCE ${RasterPlanWriter_TEMPLATE})
endfunction()
