#!/bin/bash
# Every C++ file is laid out as .clang-format says.
set -uo pipefail
cd "$(dirname "$(readlink -f "$0")")/.." || exit 1

if find src tests bench \( -name '*.h' -o -name '*.cpp' \) -print0 |
    xargs -0 -n 20 -P "$(nproc)" clang-format --dry-run -Werror 2>&1; then
    echo "ok clang-format"
else
    echo "FAILED clang-format"
    exit 1
fi
