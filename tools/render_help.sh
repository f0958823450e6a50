#!/bin/sh
# Renders every page of docs/help to a PNG with headless Chromium, so the
# pages can be looked at without a Windows help viewer.
#
# Usage: tools/render_help.sh [output folder] [width,height]
# Default folder: build-help/help-renders (build folders stay out of git).
# Needs the Debian package chromium.
set -eu

repo=$(cd "$(dirname "$0")/.." && pwd)
out=${1:-$repo/build-help/help-renders}
size=${2:-1000,1400}

if ! command -v chromium >/dev/null 2>&1; then
    echo "chromium is missing: apt-get install -y chromium" >&2
    exit 1
fi

mkdir -p "$out"
profile=$(mktemp -d)
trap 'rm -rf "$profile"' EXIT

for page in "$repo"/docs/help/*.htm; do
    name=$(basename "$page" .htm)
    chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
        --disable-background-networking --disable-component-update --disable-sync \
        --hide-scrollbars --user-data-dir="$profile" \
        --screenshot="$out/$name.png" --window-size="$size" \
        "file://$page" >/dev/null 2>&1
    if [ ! -s "$out/$name.png" ]; then
        echo "failed to render $page" >&2
        exit 1
    fi
    echo "$out/$name.png"
done
