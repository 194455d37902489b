#!/bin/bash
# build.sh <preset> [target...]: configures a preset where needed and builds the targets, or everything.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

preset=$1
shift
# Ninja configures again by itself when a CMakeLists file or the set of source files changed; only the presets escape it.
if [ ! build/"$preset"/build.ninja -nt CMakePresets.json ]; then
    launcher=()
    if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
    cmake --preset "$preset" "${launcher[@]}"
    touch build/"$preset"/build.ninja
fi
targets=()
if [ "$#" -gt 0 ]; then targets=(--target "$@"); fi
cmake --build --preset "$preset" "${targets[@]}"
