# A fuzzer sees which ways its inputs take only in code that was compiled for it: so everything is.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "RASTERPLANWRITER_BUILD_FUZZERS needs clang: -DCMAKE_CXX_COMPILER=clang++")
endif()
string(APPEND CMAKE_CXX_FLAGS
       " -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer")
