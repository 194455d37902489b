#!/bin/bash
# tidy.sh [file.cpp...]: clang-tidy over the files, or over all of src, which takes minutes; ./test.sh looks at the
# changed files only (check-tidy.sh). The flags are those of the newest build folder.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

scripts/install-packages.sh build lint
commands() { find build -maxdepth 2 -name compile_commands.json -printf '%T@ %h\n' 2>/dev/null | sort -rn | head -n 1; }
[ -n "$(commands)" ] || cmake --preset release >/dev/null
build=$(commands | cut -d ' ' -f 2-)
if [ "$#" -eq 0 ]; then mapfile -t -d '' files < <(find src -name '*.cpp' -print0 | sort -z); else files=("$@"); fi
# Flags of g++ that clang does not know.
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p "$build" --quiet \
    --extra-arg=-Wno-unknown-warning-option 2> >(grep -v ' warnings generated\.$' >&2)
