# Writes a source file that holds files byte by byte. PARTS: the files, between "|"; LICENCE: the one of them that is
# called "licence" whatever its name; OUTPUT: the source file.
string(REPLACE "|" ";" parts "${PARTS}")
set(arrays "")
set(rows "")
set(number 0)
foreach(part IN LISTS parts)
  file(READ ${part} bytes HEX)
  string(LENGTH "${bytes}" digits)
  math(EXPR length "${digits} / 2")
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
  cmake_path(GET part FILENAME name)
  if(part STREQUAL LICENCE)
    set(name licence)
  endif()
  if(name MATCHES "\\.js$")
    file(READ ${part} text)
    if(text MATCHES "</script")
      message(FATAL_ERROR "${part}: a page cannot hold this script, because it holds the end of one")
    endif()
  endif()
  string(APPEND arrays "constexpr unsigned char part${number}[] = {${bytes}};\n")
  string(APPEND rows "    {\"${name}\", part${number}, ${length}},\n")
  math(EXPR number "${number} + 1")
endforeach()
file(
  WRITE ${OUTPUT}
  "// Made from the files that it holds.
#include \"view/PageParts.h\"

#include <cstddef>

namespace rasterplan_tool {
namespace {

${arrays}
struct Row {
    std::string_view name;
    const unsigned char* bytes;
    std::size_t length;
};

constexpr Row rows[] = {
${rows}};

} // namespace

std::string_view pagePart(std::string_view name) {
    for (const Row& row : rows)
        if (row.name == name)
            return {reinterpret_cast<const char*>(row.bytes), row.length};
    return {};
}

} // namespace rasterplan_tool
")
