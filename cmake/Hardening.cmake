# What makes an overrun that slipped through end the program instead of serving an attacker. Costs are in
# docs/performance.md.
#
# Off under a sanitizer: it finds more, and the checked functions of the C library hide calls from it.
set(hardening ${PROJECT_IS_TOP_LEVEL})
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  set(hardening OFF)
endif()
option(RASTERPLANWRITER_HARDENING "Protect the stack, the tables of the linker and the targets of jumps" ${hardening})
unset(hardening)

include(CheckCXXCompilerFlag)
include(CheckPIESupported)

# rasterplanwriter_harden(<target>): of a library or program of ours. Visual Studio does the same by default.
function(rasterplanwriter_harden target)
  if(MSVC OR NOT RASTERPLANWRITER_HARDENING)
    return()
  endif()
  if(MINGW)
    # Its stack protector is a library of its own, which every host of the static library would have to link.
    target_link_options(${target} PRIVATE -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
    return()
  endif()

  target_compile_options(${target} PRIVATE -fstack-protector-strong)
  check_pie_supported(LANGUAGES CXX)
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  check_cxx_compiler_flag(-fcf-protection RASTERPLANWRITER_HAS_CF_PROTECTION)
  if(RASTERPLANWRITER_HAS_CF_PROTECTION)
    target_compile_options(${target} PRIVATE -fcf-protection)
  endif()
  if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")
    # The C library complains where nothing is optimized; a compiler may define it of itself.
    target_compile_options(
      ${target} PRIVATE $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>)
  endif()
  if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now,-z,noexecstack)
  endif()
endfunction()
