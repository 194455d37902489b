#!/bin/bash
# tidy.sh [file.cpp...]: clang-tidy over the files, or over all of src. Takes minutes, so ./test.sh leaves it out.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

scripts/install-packages.sh build lint
[ -f build/release/compile_commands.json ] || cmake --preset release >/dev/null
if [ "$#" -eq 0 ]; then mapfile -t -d '' files < <(find src -name '*.cpp' -print0 | sort -z); else files=("$@"); fi
# Flags of g++ that clang does not know.
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build/release --quiet \
    --extra-arg=-Wno-unknown-warning-option 2> >(grep -v ' warnings generated\.$' >&2)
