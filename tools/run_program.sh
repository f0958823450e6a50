#!/usr/bin/env bash
# Builds Klickwerk.exe and starts it under Wine with the example script
# (loaded with /nostart, so nothing plays by itself). On your X display when
# $DISPLAY is set, where it runs until you close it (add --close to end it
# after the screenshot); without a display on a virtual one, where it is
# photographed and closed again. Prints the screenshot's path.
#
#   bash tools/run_program.sh [--close]
set -euo pipefail
cd "$(dirname "$0")/.."
source tools/common.sh

kw_install_packages
kw_build_windows
exec python3 tools/show_program.py --build "$KW_WINDOWS_BUILD" "$@"
