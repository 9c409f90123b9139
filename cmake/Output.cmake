# Programs, libraries and the template share one folder of the build tree, as they do for a host on Windows:
# the template has to lie beside the library file, and a program finds its DLL there. A generator for several
# configurations makes one such folder for each. A project that adds this one keeps its own folders.
if(PROJECT_IS_TOP_LEVEL)
  set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
  set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
endif()
