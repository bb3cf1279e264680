#!/usr/bin/env bash
# Under Xvfb, as a user would: starts the program, answers the About box and the dictionary
# information dialog, stores the word on show (Word > Store), duplicates it (Word > Duplicate),
# saves the dictionary (Ctrl+S) and quits (Ctrl+Q): the dictionary gains one word. Only keys,
# so that the window's layout does not matter.
#   xvfb-run store_and_save.sh PROGRAM [ARGS]
set -euo pipefail
"$@" &
pid=$!
trap 'kill "$pid" 2>/dev/null || true' EXIT
# Focuses the first visible window whose title matches and sends it keys.
keys() {
  local title=$1 w
  shift
  w=$(timeout 30 xdotool search --sync --onlyvisible --name "$title" | head -1)
  xdotool windowfocus --sync "$w"
  sleep 0.5
  xdotool key --clearmodifiers "$@"
}
keys '^About Nebkaro$' Return
keys '^/.*\.nkd$' Return
keys '^Nebkaro Ver' alt+w s
keys '^Nebkaro Ver' alt+w d
keys '^Nebkaro Ver' ctrl+s
sleep 1
keys '^Nebkaro Ver' ctrl+q
timeout 30 tail --pid="$pid" -f /dev/null
trap - EXIT
wait "$pid"
