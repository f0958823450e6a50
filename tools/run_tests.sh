#!/usr/bin/env bash
# Every test of the project in one command: installs what a fresh Debian
# machine lacks, builds the portable behaviour and runs its unit tests (also
# under the address and undefined-behaviour sanitizers), runs every fuzz
# target for a few seconds (each counts as one test), cross-builds the Windows program and runs the end-to-end tests under Wine.
# The last line is "N passed, M failed"; the exit code is 0 only when
# nothing failed.
#
#   bash tools/run_tests.sh
#
# KW_NATIVE_BUILD, KW_SANITIZE_BUILD, KW_FUZZ_BUILD and KW_WINDOWS_BUILD name
# the build folders (build-native, build-sanitize, build-fuzz and
# build-windows by default).
set -uo pipefail
cd "$(dirname "$0")/.."
source tools/common.sh

started=$SECONDS
passed=0
failed=0

step() { echo; echo "=== $*"; }
failed_step() { echo "FAILED: $*"; failed=$((failed + 1)); }

step "Packages"
kw_install_packages || { echo "FAILED: package installation"; echo "0 passed, 1 failed"; exit 1; }

# Runs ctest in a build folder and adds its counts to the totals.
run_ctest() {
  local log counts
  log=$(mktemp)
  ctest --test-dir "$@" --output-on-failure --timeout 300 2>&1 | tee "$log"
  # "100% tests passed, 0 tests failed out of 57"
  counts=$(grep -Eo '[0-9]+ tests? failed out of [0-9]+' "$log" | tail -1)
  if [ -n "$counts" ]; then
    passed=$((passed + ${counts##* } - ${counts%% *}))
    failed=$((failed + ${counts%% *}))
  elif ! grep -q 'No tests were found' "$log"; then
    failed_step "ctest in $1 reported no results"
  fi
  rm -f "$log"
}

# "K flaky: a, b": end-to-end tests that failed once and passed on their second run.
flaky_line() {
  local summary="$KW_WINDOWS_BUILD/e2e-out/summary.json"
  [ -f "$summary" ] || { echo "0 flaky"; return; }
  python3 -c 'import json, sys; f = json.load(open(sys.argv[1])).get("flaky", []); print(f"{len(f)} flaky" + (": " + ", ".join(f) if f else ""))' "$summary"
}

summary_count() {
  python3 -c 'import json, sys; print(json.load(open(sys.argv[1]))[sys.argv[2]])' "$1" "$2"
}

step "Native build and unit tests ($KW_NATIVE_BUILD)"
if kw_build_native; then
  run_ctest "$KW_NATIVE_BUILD" -j2
else
  failed_step "native build"
fi

step "Unit tests under the address and undefined-behaviour sanitizers ($KW_SANITIZE_BUILD)"
if kw_build_sanitize; then
  ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 run_ctest "$KW_SANITIZE_BUILD" -j2
else
  failed_step "sanitizer build"
fi

step "Fuzz targets, a few seconds each ($KW_FUZZ_BUILD)"
fuzz_log=$(mktemp)
bash tools/fuzz.sh -max_total_time=8 | tee "$fuzz_log"
# "fuzz: 8 passed, 0 failed"
fuzz_counts=$(grep -Eo '^fuzz: [0-9]+ passed, [0-9]+ failed' "$fuzz_log" | grep -Eo '[0-9]+')
if [ -n "$fuzz_counts" ]; then
  passed=$((passed + $(echo "$fuzz_counts" | sed -n 1p)))
  failed=$((failed + $(echo "$fuzz_counts" | sed -n 2p)))
else
  failed_step "the fuzz run reported no results"
fi
rm -f "$fuzz_log"

step "Windows build ($KW_WINDOWS_BUILD)"
if kw_build_windows; then
  step "Checks of the Windows build"
  run_ctest "$KW_WINDOWS_BUILD" -E '^e2e[.]'
  step "End-to-end tests under Wine"
  summary="$KW_WINDOWS_BUILD/e2e-out/summary.json"
  rm -f "$summary"
  python3 tests/e2e/run_e2e.py --build "$KW_WINDOWS_BUILD"
  if [ -f "$summary" ]; then
    passed=$((passed + $(summary_count "$summary" passed)))
    failed=$((failed + $(summary_count "$summary" failed)))
  else
    failed_step "the end-to-end run wrote no summary"
  fi
else
  failed_step "Windows build"
fi

echo
echo "Total time: $((SECONDS - started)) s"
flaky_line
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
