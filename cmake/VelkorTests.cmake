# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later

# velkor_set_up_test(NAME LABEL label [TIMEOUT seconds] [ENVIRONMENT name=value...])
# Sets label, timeout and environment of a test: no display, no locale, no configuration of the user.
function(velkor_set_up_test name)
  cmake_parse_arguments(arg "" "LABEL;TIMEOUT" "ENVIRONMENT" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  # The timeout of ctest applies, not the shorter one of QtTest.
  set(environment QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 TZ=UTC QTEST_FUNCTION_TIMEOUT=3000000
    XDG_CONFIG_HOME=${CMAKE_CURRENT_BINARY_DIR}/${name}.dir/config ${arg_ENVIRONMENT})
  if(VELKOR_SANITIZE)
    list(APPEND environment
      LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0
      UBSAN_OPTIONS=print_stacktrace=1)
  endif()
  set_tests_properties(${name} PROPERTIES
    LABELS "${arg_LABEL}" ENVIRONMENT "${environment}" TIMEOUT ${arg_TIMEOUT})
endfunction()

# velkor_link_program(TARGET NAMES name...)
# Makes hard links NAME.dir/NAME to TARGET after each build. Each is in a folder of its own, because
# the settings file is beside the executable.
function(velkor_link_program target)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${target}> "-DNAMES=${ARGN}"
      -DSUFFIX=${CMAKE_EXECUTABLE_SUFFIX} -P ${PROJECT_SOURCE_DIR}/cmake/LinkProgram.cmake
    WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}
    VERBATIM)
endfunction()

# velkor_add_valgrind_test(NAME COMMAND program argument...)
# Adds a test that runs the command under Valgrind, which finds reads of uninitialised values, also
# in Qt. Only the test preset "valgrind" has it: it takes forty times as long.
find_program(VELKOR_VALGRIND valgrind)
function(velkor_add_valgrind_test name)
  cmake_parse_arguments(arg "" "" "COMMAND" ${ARGN})
  if(VELKOR_VALGRIND)
    add_test(NAME valgrind_${name} CONFIGURATIONS valgrind
      COMMAND ${VELKOR_VALGRIND} --quiet --error-exitcode=99 --leak-check=full --num-callers=30
        --show-leak-kinds=definite --errors-for-leak-kinds=definite
        --suppressions=${PROJECT_SOURCE_DIR}/tests/valgrind.supp ${arg_COMMAND})
    # Compiled regular expressions read past the end of a text on purpose.
    velkor_set_up_test(valgrind_${name} LABEL valgrind TIMEOUT 3000
      ENVIRONMENT QT_ENABLE_REGEXP_JIT=0)
  endif()
endfunction()
