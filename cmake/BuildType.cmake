# Before project(): who names no build type gets the optimized library, which is many times faster. An empty one that
# is named is kept.
get_property(several GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
if(CMAKE_SOURCE_DIR STREQUAL CMAKE_CURRENT_SOURCE_DIR
   AND NOT several
   AND NOT DEFINED CMAKE_BUILD_TYPE
   AND NOT DEFINED ENV{CMAKE_BUILD_TYPE})
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Debug, Release, RelWithDebInfo or MinSizeRel")
endif()
