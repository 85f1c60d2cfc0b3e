# SPDX-FileCopyrightText: 2026 The Velkor developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Searches of the test presets "robust" and "soak": briefly with fixed seeds for each change, and
# for hours with new seeds for a release. Findings go to build/fuzz/findings.
set(findings ${CMAKE_BINARY_DIR}/findings)
file(MAKE_DIRECTORY ${findings})

# velkor_add_search(NAME COST seconds COMMAND program argument... ROBUST argument... SOAK argument...)
# COST is the CPU time of the brief search; ctest starts the longest first.
function(velkor_add_search name)
  cmake_parse_arguments(arg "" "COST" "COMMAND;ROBUST;SOAK" ${ARGN})
  foreach(preset robust soak)
    string(TOUPPER ${preset} amount)
    add_test(NAME ${preset}_${name} CONFIGURATIONS ${preset}
      COMMAND ${arg_COMMAND} ${arg_${amount}})
    # Short allocation stacks save a third of the time.
    velkor_set_up_test(${preset}_${name} LABEL ${preset} TIMEOUT 200000 ENVIRONMENT
      ASAN_OPTIONS=handle_abort=1:malloc_context_size=1:quarantine_size_mb=2)
    set_tests_properties(${preset}_${name} PROPERTIES COST ${arg_COST})
  endforeach()
endfunction()

# velkor_add_fuzz_search(NAME LONGEST bytes COST seconds ROBUST runs SOAK runs)
# A fuzzer keeps its corpus in build/fuzz/corpus, where its next search begins.
function(velkor_add_fuzz_search name)
  cmake_parse_arguments(arg "" "LONGEST;COST;ROBUST;SOAK" "" ${ARGN})
  set(learned ${CMAKE_BINARY_DIR}/corpus/${name})
  # Leaks are detected at exit only. Entropic scheduling would take a tenth of the time.
  set(options -max_len=${arg_LONGEST} -artifact_prefix=${findings}/${name}- -print_final_stats=1
    -detect_leaks=0 -timeout=60 -rss_limit_mb=3000 -entropic=0 -reduce_inputs=0 -create_missing_dirs=1)
  if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${name}.dict)
    list(APPEND options -dict=${CMAKE_CURRENT_SOURCE_DIR}/${name}.dict)
  endif()
  velkor_add_search(${name} COST ${arg_COST}
    COMMAND velkor-fuzz-${name} ${learned} ${CMAKE_CURRENT_SOURCE_DIR}/corpus/${name} ${options}
    ROBUST -runs=${arg_ROBUST} -seed=1
    SOAK -runs=${arg_SOAK} -max_total_time=28800)
endfunction()

# LONGEST of record is a preamble and two heads of records, that of window a preamble and six. Qt is
# slow on long style sheets.
velkor_add_fuzz_search(record LONGEST 1054 COST 30 ROBUST 1000000 SOAK 1000000000)
velkor_add_fuzz_search(window LONGEST 3105 COST 150 ROBUST 5000 SOAK 100000)
velkor_add_fuzz_search(settings LONGEST 4096 COST 10 ROBUST 10000 SOAK 300000)
velkor_add_fuzz_search(texts LONGEST 4096 COST 25 ROBUST 3000 SOAK 100000)

set(monkey $<TARGET_FILE_DIR:velkor-monkey>)
velkor_add_search(monkey COST 120 COMMAND ${monkey}/monkey.dir/monkey seeds
  ROBUST 1 3 20000 ${findings}
  SOAK new 100 10000 ${findings})
velkor_add_search(rounds COST 20 COMMAND ${monkey}/rounds.dir/rounds rounds
  ROBUST 1 10
  SOAK new 6000)
velkor_add_search(kills COST 10 COMMAND velkor-faults
  ROBUST kills 200 1
  SOAK kills 2000 new)
velkor_add_search(failing_calls COST 24 COMMAND velkor-faults
  ROBUST calls 5
  SOAK calls 1)
