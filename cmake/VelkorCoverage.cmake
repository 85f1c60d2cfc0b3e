# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later

# The target "coverage" of the preset of that name: runs the tests with counters in src and reports
# which of its lines and branches they miss. Fails below 97 % of the lines or 92 % of the branches.
# Branches that only an exception takes are not counted: the program throws and catches nothing.
get_property(programs GLOBAL PROPERTY VELKOR_TEST_PROGRAMS)
cmake_host_system_information(RESULT cores QUERY NUMBER_OF_LOGICAL_CORES)
add_custom_target(coverage
  COMMAND find . -name "*.gcda" -delete
  COMMAND ${CMAKE_CTEST_COMMAND} --output-on-failure --parallel ${cores}
  COMMAND gcovr --root ${PROJECT_SOURCE_DIR} --filter ${PROJECT_SOURCE_DIR}/src/
    --exclude-throw-branches --exclude-unreachable-branches --html-details coverage.html
    --txt --print-summary --fail-under-line 97 --fail-under-branch 92 .
  DEPENDS ${programs} WORKING_DIRECTORY ${CMAKE_BINARY_DIR} USES_TERMINAL VERBATIM)
