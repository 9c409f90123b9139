# The example host that a document shows is the one that the other tests build.
# README: the document; EXAMPLE: the example's folder; FILES: what is shown of it, between "|".
string(REPLACE "|" ";" FILES "${FILES}")
file(READ ${README} readme)
foreach(file IN LISTS FILES)
  file(READ ${EXAMPLE}/${file} snippet)
  string(FIND "${readme}" "\n${snippet}```\n" place)
  if(place EQUAL -1)
    message(SEND_ERROR "${README} does not hold ${EXAMPLE}/${file} as it is")
  endif()
endforeach()
