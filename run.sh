#!/bin/bash
# run.sh [picture]: installs what is missing, builds what has changed, and starts the program.
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")

# The program takes its whole command line as one path, so a path goes to it as one argument, blanks and all.
picture=()
if [ "$#" -gt 0 ]; then
    case "$*" in
        /*) picture=("$*") ;;
        *) picture=("$PWD/$*") ;;
    esac
fi

roles=(build run)
if [ -z "${DISPLAY:-}" ]; then
    if [ -n "${WAYLAND_DISPLAY:-}" ]; then roles+=(wayland); else roles+=(display); fi
fi
"$here"/scripts/install-packages.sh "${roles[@]}"
"$here"/scripts/build.sh release pintalux64 >&2
program=$(find "$here"/build/release -name pintalux64 -type f -perm -u+x -print -quit)

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then exec "$program" "${picture[@]}"; fi

# No display: one in memory, with a window manager, for as long as the program runs.
started=()
end_display() {
    kill "${started[@]}" 2>/dev/null || true
    rm -rf "$folder"
}
folder=$(mktemp -d)
trap end_display EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
mkfifo "$folder"/number
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset 3>"$folder"/number 2>"$folder"/messages &
started+=($!)
if ! read -r -t 30 number <"$folder"/number; then
    echo "run.sh: no virtual display could be started:" >&2
    cat "$folder"/messages >&2
    exit 1
fi
export DISPLAY=:$number
openbox --sm-disable >"$folder"/messages 2>&1 &
started+=($!)
echo "No display: the program runs on the virtual display $DISPLAY until it is closed or Ctrl+C is pressed." >&2
echo "To look at it: DISPLAY=$DISPLAY import -window root picture.png (ImageMagick), or x11vnc -display $DISPLAY" >&2
"$program" "${picture[@]}" &
started+=($!)
wait $!
