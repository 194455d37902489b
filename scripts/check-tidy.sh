#!/bin/bash
# The files that were changed are as .clang-tidy wants them: those of the branch, or on main those of its last commit,
# with what is not committed yet. All files take minutes; for them there is scripts/tidy.sh.
set -uo pipefail
cd "$(dirname "$(readlink -f "$0")")/.." || exit 1

skip() {
    echo "skipped clang-tidy: $1"
    exit 0
}

command -v clang-tidy >/dev/null || skip "clang-tidy is not installed (scripts/install-packages.sh lint)"
base=$(git merge-base HEAD main 2>/dev/null) || base=
if [ -z "$base" ] || [ "$base" = "$(git rev-parse HEAD)" ]; then base=HEAD~1; fi
changed=$(git diff --name-only --diff-filter=d "$base" -- 'src/*.cpp' 2>/dev/null) || skip "there is no history to compare with"
[ -n "$changed" ] || skip "no file of src was changed"
mapfile -t files <<<"$changed"

# A check must not keep the others waiting: after that many files it ends, and says so.
most=12
if [ "${#files[@]}" -gt "$most" ]; then
    echo "skipped clang-tidy-of-the-rest: ${#files[@]} files were changed, the first $most are looked at; scripts/tidy.sh takes all"
    files=("${files[@]:0:most}")
fi
if problems=$(timeout 110 scripts/tidy.sh "${files[@]}" 2>&1); then
    echo "ok clang-tidy of ${#files[@]} changed files"
elif [ $? -eq 124 ]; then
    skip "it took too long; scripts/tidy.sh ${files[*]}"
else
    echo "$problems"
    echo "FAILED clang-tidy: mend what stands above, or give the reason in .clang-tidy; scripts/tidy.sh FILE repeats it"
    exit 1
fi
