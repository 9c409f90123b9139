# The first heading of CHANGELOG.md is the one place that says whether this version has been released:
#
# RasterPlanWriter_VERSION_TEXT  what is shown to people: "1.0.0", and until its day has come "1.0.0-unreleased"
# RasterPlanWriter_VERSION_PEP   the same as Python orders its packages: "1.0.0", "1.0.0.dev0"
#
# What programs compare stays PROJECT_VERSION: the macros, the packages of CMake and pkg-config.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md heading REGEX "^## " LIMIT_COUNT 1 ENCODING UTF-8)
set(RasterPlanWriter_VERSION_TEXT ${PROJECT_VERSION})
set(RasterPlanWriter_VERSION_PEP ${PROJECT_VERSION})
if(heading STREQUAL "## [${PROJECT_VERSION}] - unreleased")
  string(APPEND RasterPlanWriter_VERSION_TEXT -unreleased)
  string(APPEND RasterPlanWriter_VERSION_PEP .dev0)
elseif(NOT heading MATCHES "^## \\[${PROJECT_VERSION}\\] - [0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]$")
  message(
    FATAL_ERROR "The first heading of ${PROJECT_SOURCE_DIR}/CHANGELOG.md is \"${heading}\", but the project has the "
                "version ${PROJECT_VERSION}. Write \"## [${PROJECT_VERSION}] - unreleased\", or its day as 2026-01-31")
endif()
