#!/bin/bash
# test.sh [--quick] [part...]: installs what is missing, builds, runs the tests, and closes with the count.
#
# Parts, in this order: unit (unit and form tests, release build), sanitizers (the same under the address and
# undefined-behaviour sanitizers), checks (rules of the code and the documents), desktop (the real program on a display),
# package (the Debian package, installed into a root of its own), kill (the program killed at random moments, and what comes
# back of its documents), fuzz (hostile bytes, with clang).
# Without parts all run; --quick leaves sanitizers and fuzz out. The output of each program is kept in build/test-output.
set -uo pipefail
cd "$(dirname "$(readlink -f "$0")")" || exit 1

passed=0
failed=0
skipped=0
output=build/test-output

# count <log> <passed> <failed> <skipped>: adds the lines of a log that match the three patterns, and reports the program.
count() {
    local name=$1 log=$2 status=$3 seconds=$4 ok bad left
    ok=$(grep -cE "$5" "$log")
    bad=$(grep -cE "$6" "$log")
    left=$(grep -cE "$7" "$log")
    # A program that dies, hangs or says nothing has failed once more than its tests tell.
    if [ "$status" -ne 0 ] && [ "$bad" -eq 0 ]; then bad=1; fi
    if [ $((ok + bad + left)) -eq 0 ]; then bad=1; fi
    passed=$((passed + ok))
    failed=$((failed + bad))
    skipped=$((skipped + left))
    local line="$ok passed, $bad failed"
    if [ "$left" -gt 0 ]; then line+=", $left skipped"; fi
    printf '%-34s %s (%s s)\n' "$name" "$line" "$seconds"
    if [ "$bad" -eq 0 ]; then return; fi
    if [ "$status" -gt 1 ]; then echo "    ended with code $status"; fi
}

# run_gtest <name> <program>: one program of tests. Passing tests are left out of what a failure shows.
run_gtest() {
    local name=$1 program=$2 log=$output/$1.log start=$SECONDS status before=$failed limit=900
    # The scanner library's own test device stands still for ever in about one of a thousand pages on a busy
    # machine: two of its threads wait for each other. Its tests take seconds and get a second attempt.
    if [ "${program##*/}" = devices_tests ]; then limit=120; fi
    timeout --kill-after=10 "$limit" "$program" --gtest_color=no >"$log" 2>&1
    status=$?
    if [ "$status" -eq 124 ] && [ "$limit" -eq 120 ]; then
        echo "    $name: the test device stood still; once more"
        timeout --kill-after=10 "$limit" "$program" --gtest_color=no >"$log" 2>&1
        status=$?
    fi
    count "$name" "$log" "$status" $((SECONDS - start)) \
        '^\[       OK \] ' '^\[  FAILED  \] .* \([0-9]+ ms\)$' '^\[  SKIPPED \] .* \([0-9]+ ms\)$'
    if [ "$failed" -gt "$before" ]; then show_gtest_failures "$log"; fi
}

# The lines from the start of each test that did not end well; of a program that died, its last ones.
show_gtest_failures() {
    awk '/^\[ RUN      \] / { text = "" }
         { text = text "    " $0 "\n" }
         /^\[       OK \] |^\[  SKIPPED \] / { text = "" }
         /^\[  FAILED  \] .* \([0-9]+ ms\)$/ { printf "%s", text; text = "" }
         END { n = split(text, last, "\n"); for (i = (n > 120 ? n - 120 : 1); i < n; ++i) print last[i] }' "$1"
}

# run_lines <name> <program>...: a program that prints a line "ok ...", "FAILED ..." or "skipped ..." for each test.
run_lines() {
    local name=$1 log=$output/$1.log start=$SECONDS status before=$failed
    shift
    timeout --kill-after=10 900 "$@" >"$log" 2>&1
    status=$?
    count "$name" "$log" "$status" $((SECONDS - start)) '^ok ' '^FAILED ' '^skipped '
    if [ "$failed" -gt "$before" ]; then grep -vE '^(ok|skipped) ' "$log" | sed 's/^/    /'; fi
}

# build <preset> [target...]: a build that fails counts as one failed test, so that the rest still runs.
build() {
    local preset=$1 log=$output/build-$1.log start=$SECONDS
    if scripts/build.sh "$@" >"$log" 2>&1; then
        printf '%-34s %s\n' "build $preset" "done ($((SECONDS - start)) s)"
        return 0
    fi
    failed=$((failed + 1))
    printf '%-34s %s\n' "build $preset" "FAILED ($((SECONDS - start)) s)"
    # The first error is the one to read; the log has the rest.
    grep -vE '^\[[0-9]+/[0-9]+\] ' "$log" | cut -c1-300 | head -n 60 | sed 's/^/    /'
    echo "    (all of it: $log)"
    return 1
}

test_programs() { ctest --test-dir "build/$1" -N | sed -n 's/^ *Test *#[0-9]*: //p'; }

part_unit() {
    build release || return
    local name scale
    for name in $(test_programs release); do run_gtest "$name" "build/release/tests/$name"; done
    # Once more on displays of 1.25 and 1.5 device pixels a pixel, where no line falls on whole ones by itself.
    for scale in 1.25 1.5; do
        QT_SCALE_FACTOR=$scale run_gtest "window_tests at scale $scale" build/release/tests/window_tests
    done
}

part_sanitizers() {
    # The programs are known once the preset is configured, which the first build does.
    build sanitizers raster || return
    local names name
    names=$(test_programs sanitizers)
    # shellcheck disable=SC2086 # one target a word
    build sanitizers $names || return
    # What the toolkit and the font library keep until the end is not ours to free.
    local leaks="suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0"
    for name in $names; do
        LSAN_OPTIONS=$leaks UBSAN_OPTIONS=print_stacktrace=1 run_gtest "sanitizers $name" "build/sanitizers/tests/$name"
    done
}

part_checks() {
    local check
    for check in scripts/check-*; do run_lines "$(basename "${check%.*}")" "$check"; done
}

part_desktop() {
    build release pintalux64 program_places || return
    run_lines desktop tests/desktop/run.py
}

part_package() {
    scripts/install-packages.sh package || return
    build release pintalux64 icons || return
    run_lines package tests/package/run.py
}

part_kill() {
    build release seeded_edits || return
    run_lines kill tests/kill/run.py
}

part_fuzz() {
    scripts/install-packages.sh fuzz || return
    build fuzz fuzz_targets || return
    run_lines fuzz tests/fuzz/run.py
}

parts=()
quick=no
for argument in "$@"; do
    case $argument in
        --quick) quick=yes ;;
        unit | sanitizers | checks | desktop | package | kill | fuzz) parts+=("$argument") ;;
        *)
            sed -n '2,8s/^# \{0,1\}//p' "$0" >&2
            exit 2
            ;;
    esac
done
if [ "${#parts[@]}" -eq 0 ]; then
    parts=(unit sanitizers checks desktop package kill fuzz)
    if [ "$quick" = yes ]; then parts=(unit checks desktop package kill); fi
fi

scripts/install-packages.sh build run wayland display test || exit 1
mkdir -p "$output"
rm -rf build/failed
for part in "${parts[@]}"; do "part_$part"; done

total="$passed passed, $failed failed"
if [ "$skipped" -gt 0 ]; then total+=", $skipped skipped"; fi
echo "$total"
[ "$failed" -eq 0 ]
