# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Run by velkor_link_program with PROGRAM, NAMES and SUFFIX.
foreach(name IN LISTS NAMES)
  file(MAKE_DIRECTORY ${name}.dir)
  file(CREATE_LINK ${PROGRAM} ${name}.dir/${name}${SUFFIX} COPY_ON_ERROR)
endforeach()
