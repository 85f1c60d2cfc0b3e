# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later

# How every target of this project is compiled. Linked PRIVATE, so that a project which takes
# the viewer in keeps its own habits.
add_library(velkor_options INTERFACE)
target_compile_definitions(velkor_options INTERFACE
  QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII
  QT_NO_FOREACH
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  # Debug lines name their function in release builds too; support asks for them.
  QT_MESSAGELOGCONTEXT)

if(MSVC)
  target_compile_options(velkor_options INTERFACE /W4 /utf-8 /permissive-
    $<$<BOOL:${VELKOR_WERROR}>:/WX>)
else()
  target_compile_options(velkor_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wformat=2
    # clang does not know double{ value } for what it is: a widening that was meant.
    $<$<CXX_COMPILER_ID:GNU>:-Wdouble-promotion>
    $<$<BOOL:${VELKOR_WERROR}>:-Werror>)
endif()

if(VELKOR_SANITIZE)
  target_compile_options(velkor_options INTERFACE
    -fsanitize=${VELKOR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(velkor_options INTERFACE -fsanitize=${VELKOR_SANITIZE})
endif()

if(VELKOR_BUILD_FUZZERS)
  # What a fuzzer steers by. Comparisons are not traced: that takes half of the time and leads
  # nowhere, because next to none of them is with a fixed number of the input.
  target_compile_options(velkor_options INTERFACE
    -fsanitize-coverage=inline-8bit-counters,pc-table)
endif()
