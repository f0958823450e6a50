#!/usr/bin/env bash
# Product and test lines of the repository, and the tests' share of both.
# Counts the non-blank lines of the C/C++ (.c .cc .cpp .h .hpp .rc .def),
# Python (.py), shell (.sh) and CMake (.cmake, CMakeLists.txt) files that git
# tracks, docs/ left out; everything under tests/ is test code, the rest
# product code.
#
#   bash tools/code_share.sh
set -euo pipefail
cd "$(dirname "$0")/.."

# Non-blank lines of the tracked source files that git ls-files lists for "$@".
count() {
  git ls-files -z "$@" | grep -zE '(\.(c|cc|cpp|h|hpp|rc|def|py|sh|cmake)|(^|/)CMakeLists\.txt)$' |
    xargs -0r cat | grep -cv '^[[:space:]]*$' || true
}

product=$(count -- . ':!:docs/' ':!:tests/')
tests=$(count -- tests/)
echo "product lines: $product"
echo "test lines:    $tests"
echo "test share:    $((100 * tests / (product + tests > 0 ? product + tests : 1))) %"
