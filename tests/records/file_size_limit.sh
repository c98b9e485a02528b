#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Starts the real program under a file-size limit smaller than the best-times file, with a file cut
# short that start-up must write anew. The write fails as on a full disk: the program goes on to
# show its window, and the old file stays whole.
#
# usage: file_size_limit.sh PROGRAM SCRATCH_FOLDER, on an X server
set -euo pipefail

program=$1
scratch=$2

rm -rf "$scratch"
data=$scratch/data/cerscore/marel32b
mkdir -p "$data" "$scratch/run"
chmod 0700 "$scratch/run"
export XDG_DATA_HOME=$scratch/data XDG_RUNTIME_DIR=$scratch/run QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY

printf '"00400000040A               "\r\n"00300000030B               "\r\n' > "$data/mlbestTime.dat"
cp "$data/mlbestTime.dat" "$scratch/before"

prlimit --fsize=200 "$program" > "$scratch/program.log" 2>&1 &
pid=$!
trap 'kill "$pid" 2>/dev/null || true' EXIT

# The window shows once start-up is over.
until xdotool search --onlyvisible --pid "$pid" > /dev/null 2>&1; do
  if ! kill -0 "$pid" 2>/dev/null; then
    status=0
    wait "$pid" || status=$?
    ((status > 128)) && echo "FAIL: the program was killed by signal $((status - 128)) during start-up"
    ((status <= 128)) && echo "FAIL: the program ended during start-up with status $status"
    cat "$scratch/program.log"
    exit 1
  fi
  ((SECONDS < 60)) || { echo "FAIL: no window after 60 s"; exit 1; }
  sleep 0.1
done

cmp "$scratch/before" "$data/mlbestTime.dat" || { echo "FAIL: the best-times file is not as it was"; exit 1; }
echo "the program runs and the best-times file is whole"
