#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the Debian package with CPack, checks its control fields, unpacks it into a scratch root
# and starts the program from there, headless.
# usage: check_deb_package.sh <build folder> <scratch folder> <program folder> <bin folder>
# (the last two relative to the /usr prefix of the package)
set -uo pipefail
build=$1 scratch=$2 program_dir=$3 bin_dir=$4

faults=0
fault() { echo "FAULT: $*" >&2; faults=$((faults + 1)); }
finish() { ((faults == 0)) && { echo "the package is right"; exit 0; }; echo "$faults fault(s)" >&2; exit 1; }

rm -rf "$scratch"
mkdir -p "$scratch/out" "$scratch/root" "$scratch/data" "$scratch/run"
chmod 700 "$scratch/run"

if ! cpack --config "$build/CPackConfig.cmake" -G DEB -B "$scratch/out" >"$scratch/cpack.log" 2>&1; then
  cat "$scratch/cpack.log" >&2
  fault "cpack -G DEB failed"
  finish
fi
debs=("$scratch"/out/*.deb)
if ((${#debs[@]} != 1)) || [ ! -f "${debs[0]}" ]; then
  fault "cpack made ${#debs[@]} packages, not one: ${debs[*]}"
  finish
fi
deb=${debs[0]}

# The control fields.
field() { dpkg-deb -f "$deb" "$1"; }
[ "$(field Package)" = marelle ] || fault "Package is '$(field Package)', not marelle"
[ "$(field Section)" = games ] || fault "Section is '$(field Section)', not games"
[ -n "$(field Maintainer)" ] || fault "no Maintainer"
[ -n "$(field Homepage)" ] || fault "no Homepage"
[ -n "$(field Description)" ] || fault "no Description"
# names FIELD PACKAGE...: the field names each package.
names() {
  local name=$1 value
  value=$(field "$name")
  shift
  for package in "$@"; do
    grep -Eq "(^|, )$package( |,|$)" <<<"$value" || fault "$name lacks $package: $value"
  done
}
names Depends libqt6widgets6 libqt6multimedia6 libqt6gui6 libqt6core6 fonts-liberation
# The help's viewer, and the viewer of the catalogue, a compiled help file.
names Recommends xdg-utils xchm
# Qt comes from the system, not from the package.
if dpkg-deb -c "$deb" | grep -q 'libQt6'; then
  fault "the package carries Qt libraries of its own"
fi

# Unpacked, the program folder holds what the program reads beside it.
root=$scratch/root
dpkg-deb -x "$deb" "$root" || { fault "dpkg-deb -x failed"; finish; }
program=$root/usr/$program_dir
for file in marelle marelle-sound.so marel001.wav marel002.wav marel007.wav marel008.wav marel009.wav marel010.wav \
  aidemarelle/aide.htm catalogue.chm; do
  [ -f "$program/$file" ] || fault "the package lacks usr/$program_dir/$file"
done
command=$root/usr/$bin_dir/marelle
[ -L "$command" ] && [ "$(readlink -f "$command")" = "$(readlink -f "$program/marelle")" ] ||
  fault "usr/$bin_dir/marelle is not a link to usr/$program_dir/marelle"
((faults == 0)) || finish

# Started through the command on the path, the program stays up, finds its sound cues (a missing
# one makes the sound layer print "Error decoding", which MARELLE_DEBUG lets through) and keeps a
# second start from running.
export QT_QPA_PLATFORM=offscreen XDG_DATA_HOME=$scratch/data XDG_RUNTIME_DIR=$scratch/run MARELLE_DEBUG=1
"$command" 2>"$scratch/first.err" &
first=$!
sleep 1
if ! kill -0 "$first" 2>/dev/null; then
  wait "$first"
  fault "the installed program exited at once with status $?"
  cat "$scratch/first.err" >&2
  finish
fi
timeout 10 "$command" 2>"$scratch/second.err"
second=$?
[ "$second" -eq 0 ] || fault "a second start beside the first ended with status $second, not 0 at once"
sleep 1
kill -0 "$first" 2>/dev/null || fault "the installed program did not stay up 2 s"
kill "$first" 2>/dev/null
wait "$first" 2>/dev/null
if grep -q 'Error decoding' "$scratch/first.err"; then
  fault "the installed program could not read its sound cues:"
  cat "$scratch/first.err" >&2
fi

# The same start with one cue taken away from the program folder does print the warning: the
# program reads its cues from that folder, and the check above can see them missing.
rm "$program/marel010.wav"
"$command" 2>"$scratch/without_cue.err" &
third=$!
sleep 2
kill "$third" 2>/dev/null
wait "$third" 2>/dev/null
grep -q 'Error decoding.*marel010\.wav' "$scratch/without_cue.err" ||
  fault "with marel010.wav removed from usr/$program_dir, no 'Error decoding' warning named it"
finish
