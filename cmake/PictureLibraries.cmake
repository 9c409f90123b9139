# libjpeg and libpng, with the zlib that it needs: those of the system, or put into the program.
set(shared_or_static ${CMAKE_FIND_LIBRARY_SUFFIXES})
if(RASTERPLANWRITER_STATIC_PICTURE_LIBRARIES)
  set(CMAKE_FIND_LIBRARY_SUFFIXES ${CMAKE_STATIC_LIBRARY_SUFFIX})
endif()
foreach(library JPEG PNG ZLIB)
  # What an earlier run found under the other choice is looked for anew.
  cmake_path(GET ${library}_LIBRARY_RELEASE EXTENSION LAST_ONLY found)
  if(found STREQUAL CMAKE_STATIC_LIBRARY_SUFFIX AND NOT RASTERPLANWRITER_STATIC_PICTURE_LIBRARIES
     OR NOT found STREQUAL CMAKE_STATIC_LIBRARY_SUFFIX AND RASTERPLANWRITER_STATIC_PICTURE_LIBRARIES)
    unset(${library}_LIBRARY_RELEASE CACHE)
  endif()
endforeach()
find_package(JPEG QUIET)
find_package(PNG QUIET)
set(CMAKE_FIND_LIBRARY_SUFFIXES ${shared_or_static})
