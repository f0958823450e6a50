#!/usr/bin/env bash
# Fuzzing: builds the libFuzzer targets (build-fuzz: clang, AddressSanitizer
# and UndefinedBehaviorSanitizer) and runs each over its seed corpus
# tests/fuzz/corpus/<name>/, one after the other. Prints one line per target
# with its executions, executions per second and crashes (a crash, a hang of
# more than 5 s, a sanitizer report or running out of memory; the target stops
# at the first), then "fuzz: N passed, M failed". Crashing inputs are kept in
# build-fuzz/fuzz-out/<name>/; the inputs each run found in build-fuzz/corpus/<name>/.
#
#   bash tools/fuzz.sh                        # 10,000,000 executions of every target
#   bash tools/fuzz.sh -max_total_time=8      # 8 s of every target (the test command)
#   bash tools/fuzz.sh -runs=100000 playback  # one target
#
# Leading arguments that begin with "-" go to every target (libFuzzer's options).
# Inputs are at most 1,024 bytes: the readers' handling of large files has tests of its own.
#
# KW_FUZZ_BUILD names the build folder.
set -uo pipefail
cd "$(dirname "$0")/.."
source tools/common.sh

options=()
while [[ ${1:-} == -* ]]; do options+=("$1"); shift; done
[ ${#options[@]} -eq 0 ] && options=(-runs=10000000)
targets=("$@")
[ ${#targets[@]} -eq 0 ] && targets=($(ls tests/fuzz/corpus))

kw_build_fuzz || { echo "FAILED: fuzz build"; echo "fuzz: 0 passed, 1 failed"; exit 1; }

# The fuzzer's final statistic named $2 from the log $1.
stat() { grep -Eo "^stat::$2: +[0-9]+" "$1" | grep -Eo '[0-9]+$' || echo 0; }

passed=0
failed=0
for name in "${targets[@]}"; do
  out="$KW_FUZZ_BUILD/fuzz-out/$name"
  corpus="$KW_FUZZ_BUILD/corpus/$name"
  mkdir -p "$out" "$corpus"
  log="$out/last-run.log"
  before=$(ls "$out" | grep -Ec '^(crash|timeout|oom|leak)-')
  "$KW_FUZZ_BUILD/fuzz_$name" "${options[@]}" -max_len=1024 -timeout=5 -rss_limit_mb=4096 -print_final_stats=1 \
      -artifact_prefix="$out/" "$corpus" "tests/fuzz/corpus/$name" > "$log" 2>&1
  status=$?
  crashes=$(( $(ls "$out" | grep -Ec '^(crash|timeout|oom|leak)-') - before ))
  [ "$status" -ne 0 ] && [ "$crashes" -eq 0 ] && crashes=1
  printf '%-16s %12d executions %8d/s %3d crashes\n' "$name" \
      "$(stat "$log" number_of_executed_units)" "$(stat "$log" average_exec_per_sec)" "$crashes"
  if [ "$crashes" -eq 0 ]; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    grep -E '^(SUMMARY|==[0-9]+==ERROR)' "$log" | head -3
    echo "  log: $log"
  fi
done
echo "fuzz: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
