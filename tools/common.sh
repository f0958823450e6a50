# Shared by run_tests.sh and run_program.sh: the packages a fresh Debian
# machine lacks, and the two builds. Source it from the repository's root.

KW_NATIVE_BUILD=${KW_NATIVE_BUILD:-build-native}
KW_SANITIZE_BUILD=${KW_SANITIZE_BUILD:-build-sanitize}
KW_WINDOWS_BUILD=${KW_WINDOWS_BUILD:-build-windows}
KW_FUZZ_BUILD=${KW_FUZZ_BUILD:-build-fuzz}
# CI builds with warnings as errors.
KW_CMAKE_OPTIONS=(-DCMAKE_BUILD_TYPE=Release -DKW_WARNINGS_AS_ERRORS=$([ "${CI:-}" = true ] && echo ON || echo OFF))

KW_PACKAGES=(
  build-essential cmake git python3
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  clang-14 libclang-rt-14-dev
  g++-mingw-w64-x86-64-posix
  wine64 xvfb xauth xdotool imagemagick
  fp-utils libchm-bin
  python3-pyftpdlib
)

kw_missing_packages() {
  local package
  for package in "${KW_PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}\n' "$package" 2>/dev/null | grep -q '^install ok installed$' || echo "$package"
  done
}

# Installs only what is missing, so a prepared machine skips this at once.
kw_install_packages() {
  local missing
  missing=$(kw_missing_packages)
  [ -z "$missing" ] && return 0
  local sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  echo "Installing:" $missing
  $sudo apt-get update -q &&
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -q --no-install-recommends $missing
}

kw_build_native() {
  cmake -S . -B "$KW_NATIVE_BUILD" "${KW_CMAKE_OPTIONS[@]}" &&
    cmake --build "$KW_NATIVE_BUILD" -- -j2
}

# The unit tests once more under AddressSanitizer and UndefinedBehaviorSanitizer.
kw_build_sanitize() {
  cmake -S . -B "$KW_SANITIZE_BUILD" "${KW_CMAKE_OPTIONS[@]}" -DKW_SANITIZE=ON &&
    cmake --build "$KW_SANITIZE_BUILD" --target unit_tests -- -j2
}

# The libFuzzer targets of tests/fuzz/ (tools/fuzz.sh runs them).
kw_build_fuzz() {
  cmake -S . -B "$KW_FUZZ_BUILD" "${KW_CMAKE_OPTIONS[@]}" -DKW_FUZZ=ON \
      -DCMAKE_C_COMPILER=clang-14 -DCMAKE_CXX_COMPILER=clang++-14 &&
    cmake --build "$KW_FUZZ_BUILD" --target fuzz_targets -- -j2
}

kw_build_windows() {
  cmake -S . -B "$KW_WINDOWS_BUILD" "${KW_CMAKE_OPTIONS[@]}" \
      -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64.cmake" &&
    cmake --build "$KW_WINDOWS_BUILD" -- -j2
}
