#!/bin/bash
# Every header compiles alone; those that are not the surface's private ones without the toolkit's include paths.
set -uo pipefail
cd "$(dirname "$(readlink -f "$0")")/.." || exit 1

toolkit=$(pkg-config --cflags Qt6Widgets Qt6PrintSupport Qt6Svg) || exit 1
export toolkit

compile() {
    local flags=()
    case $1 in *_native.h) read -ra flags <<<"$toolkit" ;; esac
    g++ -std=c++20 -fsyntax-only -Isrc "${flags[@]}" -include "$1" -x c++ /dev/null || echo "$1 does not stand alone"
}
export -f compile

problems=$(find src -name '*.h' -print0 | sort -z | xargs -0 -P "$(nproc)" -I{} bash -c 'compile {}' 2>&1)
if [ -n "$problems" ]; then
    echo "$problems"
    echo "FAILED headers_stand_alone"
    exit 1
fi
echo "ok headers_stand_alone"
