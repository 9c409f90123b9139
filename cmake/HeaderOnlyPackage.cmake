# Makes the target of a package that consists of headers only.
#
# A cross build takes the headers of the building machine, but through a link of its own: the folder that holds
# them holds the building machine's system headers too, which must not come before the target's.
function(rasterplanwriter_header_only_package package target header)
  if(TARGET ${target})
    return()
  endif()
  if(NOT CMAKE_CROSSCOMPILING)
    find_package(${package} REQUIRED)
    return()
  endif()
  string(TOUPPER ${package}_INCLUDE_DIR variable)
  find_path(${variable} ${header} PATHS /usr/include /usr/local/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  get_filename_component(folder ${header} DIRECTORY)
  set(links ${PROJECT_BINARY_DIR}/headers/${package})
  file(MAKE_DIRECTORY ${links})
  file(CREATE_LINK ${${variable}}/${folder} ${links}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} INTERFACE ${links})
endfunction()
