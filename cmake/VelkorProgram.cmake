# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later

# velkor_add_program(NAME SOURCE...)
# A windowed program; on Windows with icon and version.
set(velkor_windows_folder ${CMAKE_CURRENT_LIST_DIR}/../packaging/windows)
function(velkor_add_program name)
  add_executable(${name} WIN32 ${ARGN})
  if(WIN32)
    configure_file(${velkor_windows_folder}/velkor.rc.in
      ${CMAKE_CURRENT_BINARY_DIR}/velkor.rc @ONLY)
    target_sources(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/velkor.rc)
  endif()
endfunction()
