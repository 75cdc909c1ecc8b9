# Makes the table of windows_zones.cpp out of the names that the Unicode consortium collects: of each zone its name, the
# words that are shown of it and the time zone database's name for it.
#
#   cmake -DNAMES=windowsZones.xml -DTABLE=windows_zone_names.inc -P MakeWindowsZones.cmake
file(STRINGS "${NAMES}" lines ENCODING UTF-8)
set(table "")
set(shown "")
foreach(line IN LISTS lines)
  if(line MATCHES "<!-- \\(UTC[^)]*\\) (.*) -->")
    set(shown "${CMAKE_MATCH_1}")
  elseif(line MATCHES "<mapZone other=\"([^\"]*)\" territory=\"001\" type=\"([^\"]*)\"/>")
    string(APPEND table "{\"${CMAKE_MATCH_1}\", \"${shown}\", \"${CMAKE_MATCH_2}\"},\n")
    set(shown "")
  endif()
endforeach()
if(table STREQUAL "")
  message(FATAL_ERROR "${NAMES} has no names of time zones")
endif()
file(WRITE "${TABLE}" "${table}")
