# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Compile options of every target of this project. Linked PRIVATE, so a project that contains the
# viewer keeps its own options.
add_library(velkor_options INTERFACE)
target_compile_definitions(velkor_options INTERFACE
  QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII
  QT_NO_FOREACH
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  # Log messages name their function in release builds too.
  QT_MESSAGELOGCONTEXT)

if(MSVC)
  target_compile_options(velkor_options INTERFACE /W4 /utf-8 /permissive-
    $<$<BOOL:${VELKOR_WERROR}>:/WX>)
else()
  target_compile_options(velkor_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wformat=2
    # clang warns about double{ value } as well.
    $<$<CXX_COMPILER_ID:GNU>:-Wdouble-promotion>
    $<$<BOOL:${VELKOR_WERROR}>:-Werror>)
endif()

if(VELKOR_SANITIZE)
  target_compile_options(velkor_options INTERFACE
    -fsanitize=${VELKOR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(velkor_options INTERFACE -fsanitize=${VELKOR_SANITIZE})
endif()

if(VELKOR_BUILD_FUZZERS)
  # Instrumentation for the fuzzers. Comparisons are not traced: tracing takes half of the time, and
  # few of them compare the input with constants.
  target_compile_options(velkor_options INTERFACE
    -fsanitize-coverage=inline-8bit-counters,pc-table)
endif()
