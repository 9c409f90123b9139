# The example host that README shows is the one that the other tests build.
# README; EXAMPLE: the example's folder.
file(READ ${README} readme)
foreach(file main.cpp CMakeLists.txt)
  file(READ ${EXAMPLE}/${file} snippet)
  string(FIND "${readme}" "\n${snippet}```\n" place)
  if(place EQUAL -1)
    message(SEND_ERROR "${README} does not hold ${EXAMPLE}/${file} as it is")
  endif()
endforeach()
