# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Run by CPack on the installed tree before packaging: adds the files that Debian requires to a
# Debian package, compressed as required. Does not change other packages.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()

set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(doc ${share}/doc/velkor)

# The system has one copy of the licence for all packages.
file(REMOVE ${doc}/LICENSE)
file(COPY ${CPACK_VELKOR_DEBIAN_DIR}/copyright DESTINATION ${doc}
  FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

# Converts the list items of this version in the project's changelog to a changelog in Debian's
# format. The lines are wrapped again, because Debian's are shorter.
file(STRINGS ${doc}/CHANGELOG.md lines ENCODING UTF-8)
set(version "")
set(points)
foreach(line IN LISTS lines)
  # A semicolon would separate two elements of a list.
  string(REPLACE ";" "@semicolon@" line "${line}")
  if(line MATCHES "^## \\[([0-9.]+)\\]")
    set(version ${CMAKE_MATCH_1})
  elseif(NOT version STREQUAL CPACK_PACKAGE_VERSION)
    continue()
  elseif(line MATCHES "^- (.*)")
    list(APPEND points "* ${CMAKE_MATCH_1}")
  elseif(line MATCHES "^  ([^ ].*)")
    string(APPEND points " ${CMAKE_MATCH_1}")
  endif()
endforeach()
if(NOT points)
  message(FATAL_ERROR "CHANGELOG.md has no points for version ${CPACK_PACKAGE_VERSION}")
endif()

set(text "velkor (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium\n\n")
foreach(point IN LISTS points)
  string(REPLACE " " ";" words "${point}")
  set(line " ")
  foreach(word IN LISTS words)
    string(LENGTH "${line} ${word}" length)
    if(length GREATER 76)
      string(APPEND text "${line}\n")
      set(line "   ")
    endif()
    string(APPEND line " ${word}")
  endforeach()
  string(APPEND text "${line}\n")
endforeach()
string(REPLACE "@semicolon@" ";" text "${text}")
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
string(APPEND text "\n -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
file(REMOVE ${doc}/CHANGELOG.md)
file(WRITE ${doc}/changelog "${text}")

find_program(gzip gzip REQUIRED)
file(GLOB pages ${share}/man/man1/*.1)
execute_process(COMMAND ${gzip} --best --no-name ${doc}/changelog ${pages}
  COMMAND_ERROR_IS_FATAL ANY)
