#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Plays the real program on its own X server through real X events, as a player would: level 0 of
# each game won, the first game saved at abandon, the others not; the best-times file checked byte
# for byte; quit, restart, and the saved game loaded back where it was.
# Every screen along the way is checked against the artwork by screen_check.
#
# usage: play_three_games.sh PROGRAM SCREEN_CHECK ART_FOLDER SCRATCH_FOLDER
set -euo pipefail

program=$1
checker=$2
art=$3
scratch=$4

rm -rf "$scratch"
mkdir -p "$scratch/data" "$scratch/run" "$scratch/shots"
chmod 0700 "$scratch/run"
export XDG_DATA_HOME=$scratch/data XDG_RUNTIME_DIR=$scratch/run QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY SESSION_MANAGER

xvfb_pid=
game_pid=
cleanup() {
  local status=$?
  if [[ -n $game_pid ]] && kill -0 "$game_pid" 2>/dev/null; then kill "$game_pid" 2>/dev/null || true; fi
  if [[ -n $xvfb_pid ]] && kill -0 "$xvfb_pid" 2>/dev/null; then kill "$xvfb_pid" 2>/dev/null || true; fi
  wait 2>/dev/null || true
  if ((status != 0)); then
    echo "--- program output ---"
    cat "$scratch"/program*.log 2>/dev/null || true
    echo "screenshots and checker reports are in $scratch/shots"
  fi
  exit "$status"
}
trap cleanup EXIT

microseconds() { echo "${EPOCHREALTIME/[.,]/}"; }
started=$(microseconds)
step() {
  local elapsed=$(($(microseconds) - started))
  printf '[%3d.%02d s] %s\n' $((elapsed / 1000000)) $((elapsed % 1000000 / 10000)) "$*"
}
fail() {
  echo "FAIL: $*"
  exit 1
}

# poll SECONDS WHAT COMMAND...: runs COMMAND until it succeeds, at most for SECONDS.
poll() {
  local deadline=$((SECONDS + $1)) limit=$1 what=$2
  shift 2
  until "$@"; do
    ((SECONDS < deadline)) || {
      echo "FAIL: $what: still not so after $limit s"
      return 1
    }
    sleep 0.1
  done
}

# --- the X server, on a display number it picks itself ---
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$scratch/display" 2>"$scratch/xvfb.log" &
xvfb_pid=$!
display_ready() { [[ -s $scratch/display ]]; }
poll 20 "Xvfb is ready" display_ready || { cat "$scratch/xvfb.log"; exit 1; }
DISPLAY=:$(tr -d '\n' <"$scratch/display")
export DISPLAY
step "Xvfb on $DISPLAY"

# --- windows ---
# find_window TITLE: the visible window of that exact title, waited for a while.
find_window() {
  local id
  id=$(timeout 20 xdotool search --sync --onlyvisible --name "^$1\$" | head -n 1) || true
  [[ -n $id ]] || fail "no visible window \"$1\" appeared"
  echo "$id"
}
# gone WINDOW: true once the window is no longer shown.
gone() { ! xwininfo -id "$1" 2>/dev/null | grep -q 'Map State: IsViewable'; }
wait_gone() { poll 15 "window $1 closes" gone "$1"; }
# geometry WINDOW: sets X, Y, WIDTH and HEIGHT to the window's place on the screen.
geometry() {
  local line
  X='' Y='' WIDTH='' HEIGHT=''
  while IFS= read -r line; do
    case $line in X=* | Y=* | WIDTH=* | HEIGHT=*) declare -g "${line%%=*}=${line#*=}" ;; esac
  done < <(xdotool getwindowgeometry --shell "$1")
}
# click WINDOW X Y: a left click at that point of the window.
click() { xdotool mousemove --window "$1" "$2" "$3" click 1; }
# Points in the main window: the centre of a menu button, of a cell of each game's board.
menu_button() { # 1 to 7
  local left=(38 38 36 37 32 20 9) top=(131 186 241 296 351 407 461)
  click "$main" $((${left[$1 - 1]} + 21)) $((${top[$1 - 1]} + 21))
}
cell1() { click "$main" $((128 + 54 * $1 + 27)) $((26 + 278 + 54 * $2 + 27)); }
cell2() { click "$main" $((104 + 60 * $1 + 30)) $((30 + 60 * $2 + 30)); }
cell3() { click "$main" $((110 + 52 * $1 + 26)) $((66 + 52 * $2 + 26)); }
# Points in a 300 x 300 dialog: its three answers, its answer box, the chooser's rows.
answer() { click "$dialog" 190 $((189 + 34 * ($1 - 1) + 13)); }
answer_box() { click "$dialog" 150 147; }
chooser_row() { click "$dialog" 137 $((58 + 22 * $1 + 10)); }

# --- screens ---
# screen_is NAME CHECKER-ARGUMENTS...: a screenshot now, checked; the shot and the report are kept.
screen_is() {
  local name=$1
  shift
  import -window root "ppm:$scratch/shots/$name.ppm" 2>/dev/null || return 1
  QT_QPA_PLATFORM=offscreen "$checker" --art "$art" --shot "$scratch/shots/$name.ppm" "$@" \
    >"$scratch/shots/$name.txt" 2>&1
}
# expect_screen NAME CHECKER-ARGUMENTS...: waits for the screen to show that, or fails with the report.
expect_screen() {
  poll 15 "the screen shows $1" screen_is "$@" || {
    cat "$scratch/shots/$1.txt"
    exit 1
  }
}
board1() { expect_screen "$1" --origin "$main_origin" --game 1 --upper "$2" --lower "$3" "${@:4}"; }
board2() { expect_screen "$1" --origin "$main_origin" --game 2 --board "$2" "${@:3}"; }
board3() { expect_screen "$1" --origin "$main_origin" --game 3 --board "$2" "${@:3}"; }

# open_dialog NAME BOX BUTTONS: waits for the message dialog, checks that it lies 300 x 300 over the
# middle of the main window and shows that answer box (none, empty or filled) and that many buttons.
open_dialog() {
  dialog=$(find_window Message)
  geometry "$dialog"
  [[ "$X,$Y ${WIDTH}x$HEIGHT" == "$((main_x + 150)),$((main_y + 150)) 300x300" ]] ||
    fail "$1: the dialog lies at $X,$Y ${WIDTH}x$HEIGHT"
  expect_screen "$1" --origin "$X,$Y" --dialog --box "$2" --buttons "$3"
}
# type_name TEXT: into the dialog's answer box, clicked first as a player does.
type_name() {
  answer_box
  xdotool type --delay 40 "$1"
  expect_screen "typed_$1" --origin "$X,$Y" --dialog --box filled --buttons "$2"
}

start_program() {
  "$program" >"$scratch/program$1.log" 2>&1 &
  game_pid=$!
  main=$(find_window Marelle)
  geometry "$main"
  [[ "$X,$Y ${WIDTH}x$HEIGHT" == "212,84 600x600" ]] ||
    fail "the main window lies at $X,$Y ${WIDTH}x$HEIGHT, not 600x600 in the middle of 1024x768"
  main_x=$X main_y=$Y main_origin=$X,$Y
}

# quit_program: button 7, "Oui"; the program must end by itself with status 0.
quit_program() {
  menu_button 7
  open_dialog quit_question none 2
  answer 1
  ended() { ! kill -0 "$game_pid" 2>/dev/null; }
  poll 15 "the program ends after \"Oui\"" ended
  local status=0
  wait "$game_pid" || status=$?
  game_pid=
  ((status == 0)) || fail "the program ended with status $status"
}

# The boards, rows from the top.
jeu1_targets0='...2..../...2..../...1..../...2..../...2....'
jeu1_won0='...W..../...W..../...W..../...W..../...W....'
jeu1_targets1='...1..../...2..../.12121../...2..../...1....'
jeu1_sockets1='...S..../...S..../.SSSSS../...S..../...S....'
jeu2_level1='......../......../....o.../....oo../..oo..../...o..../......../......../........'
e9='..................'
jeu3_level1="$e9/$e9/......01030404..../......04010201..../......04030404..../$e9/$e9/$e9/$e9"
jeu3() { echo "$e9/$e9/$1/$2/$3/$e9/$e9/$e9/$e9"; }

step "first run"
start_program 1
step "main window 600x600 at 212,84"

# --- Jeu 1: a name, level 0 won, abandoned and saved ---
menu_button 1
open_dialog name_question empty 1
type_name Ariane 1
answer 1
wait_gone "$dialog"
board1 jeu1_level0_fresh "$jeu1_targets0" '...S..../...S..../...S..../...S..../...S....' --level 000
step "Jeu 1 level 0 set up"
cell1 3 4
board1 jeu1_move1 "$jeu1_targets0" '...S..../...S..../...S..../...S..../...1....'
cell1 3 3
board1 jeu1_move2 "$jeu1_targets0" '...S..../...S..../...S..../...1..../...2....'
cell1 3 0
board1 jeu1_move3 "$jeu1_targets0" '...1..../...S..../...S..../...1..../...2....'
cell1 3 1
board1 jeu1_move4 "$jeu1_targets0" '...2..../...1..../...S..../...1..../...2....'
cell1 3 2
board1 jeu1_won "$jeu1_won0" '...2..../...2..../...1..../...2..../...2....'
step "Jeu 1 level 0 won"
board1 jeu1_level1 "$jeu1_targets1" "$jeu1_sockets1" --level 001
step "Jeu 1 level 1 set up"
menu_button 4
open_dialog abandon_question none 3
answer 1
wait_gone "$dialog"
open_dialog save_question empty 2
type_name 'Essai 1' 2
answer 1
wait_gone "$dialog"
saved=$XDG_DATA_HOME/cerscore/marel32b/Essai\ 1.sml
file_there() { [[ -s $saved ]]; }
poll 10 "the saved game file is written" file_there
step "Jeu 1 abandoned and saved"

# --- Jeu 2: level 0 won, abandoned, not saved ---
menu_button 2
open_dialog launch_question none 3
answer 1
wait_gone "$dialog"
open_dialog name_question_again filled 1
answer 1
wait_gone "$dialog"
board2 jeu2_level0_fresh '......../......../......../...oo.../..o..o../...oo.../......../......../........' --level 000
step "Jeu 2 level 0 set up"
cell2 3 4
board2 jeu2_move1 '......../......../......../....o.../...ooo../....o.../......../......../........'
cell2 4 4
board2 jeu2_level1 "$jeu2_level1" --level 001
step "Jeu 2 level 0 won, level 1 set up"
menu_button 4
open_dialog abandon_question2 none 3
answer 1
wait_gone "$dialog"
open_dialog save_question2 empty 2
answer 2
wait_gone "$dialog"
step "Jeu 2 abandoned, not saved"

# --- Jeu 3: level 0 won by six pairs, abandoned, not saved ---
menu_button 3
open_dialog launch_question3 none 3
answer 1
wait_gone "$dialog"
open_dialog name_question3 filled 1
answer 1
wait_gone "$dialog"
board3 jeu3_level0_fresh "$(jeu3 ......02233434.... ......13011301.... ......12240212....)" --level 000
step "Jeu 3 level 0 set up"
cell3 5 3
board3 jeu3_selected "$(jeu3 ......02233134.... ......13021302.... ......12240312....)" --selected 5,3
cell3 3 3
board3 jeu3_pair1 "$(jeu3 ......03233134.... ........03..02.... ......13240312....)"
cell3 3 2
board3 jeu3_select2 "$(jeu3 ......03243134.... ........03..02.... ......13240312....)" --selected 3,2
cell3 4 3
board3 jeu3_pair2 "$(jeu3 ........213134.... ............02.... ......13210312....)"
cell3 5 2
board3 jeu3_select3 "$(jeu3 ........223131.... ............02.... ......13210312....)" --selected 5,2
cell3 6 2
board3 jeu3_pair3 "$(jeu3 ........22........ ............03.... ......13210312....)"
cell3 5 4
board3 jeu3_select4 "$(jeu3 ........22........ ............03.... ......13220313....)" --selected 5,4
cell3 6 3
board3 jeu3_pair4 "$(jeu3 ........22........ $e9 ......1322..14....)"
cell3 4 4
board3 jeu3_select5 "$(jeu3 ........22........ $e9 ......1422..14....)" --selected 4,4
cell3 4 2
board3 jeu3_pair5 "$(jeu3 $e9 $e9 ......14....14....)"
cell3 3 4
board3 jeu3_select6 "$(jeu3 $e9 $e9 ......14....14....)" --selected 3,4
cell3 6 4
board3 jeu3_level1 "$jeu3_level1" --level 001
step "Jeu 3 level 0 won, level 1 set up"
menu_button 4
open_dialog abandon_question3 none 3
answer 1
wait_gone "$dialog"
open_dialog save_question3 empty 2
answer 2
wait_gone "$dialog"
step "Jeu 3 abandoned, not saved"

# --- the best times: each game's level 0 enters row 1 only if won within its first second ---
best=$XDG_DATA_HOME/cerscore/marel32b/mlbestTime.dat
empty_row=$'"00000000000................"\r\n'
player_row=$'"00000000000ARIANE          "\r\n'
outcome=()
: >"$scratch/best_expected"
for game in 1 2 3; do
  printf '%s' "$player_row$empty_row$empty_row" >"$scratch/best_quick"
  if dd if="$best" bs=31 skip=$(((game - 1) * 3)) count=3 status=none | cmp -s - "$scratch/best_quick"; then
    outcome+=("Jeu $game won in 0 s, entered;")
    printf '%s' "$player_row$empty_row$empty_row" >>"$scratch/best_expected"
  else
    outcome+=("Jeu $game won in 1 s or more, not entered;")
    printf '%s' "$empty_row$empty_row$empty_row" >>"$scratch/best_expected"
  fi
done
cmp "$best" "$scratch/best_expected" || {
  od -c "$best"
  fail "the best-times file is neither outcome of each game"
}
step "best times, 279 bytes: ${outcome[*]}"

# --- the saved game: level 1 of Jeu 1 and its time, consistent with the best times ---
check_saved_game() {
  local seconds
  seconds=$(sed -n '3p' "$saved" | tr -d '\r')
  [[ $seconds =~ ^[0-9]+$ ]] || fail "no time in the saved game: $(od -c "$saved")"
  printf '"ARIANE"\r\n1\r\n%s\r\n0\r\n0\r\n0\r\n0\r\n' "$seconds" >"$scratch/saved_expected"
  cmp "$saved" "$scratch/saved_expected" || {
    od -c "$saved"
    fail "the saved game's bytes"
  }
  if [[ ${outcome[0]} == *"0 s"* ]]; then
    ((seconds == 0)) || fail "Jeu 1 entered the best times but its saved time is $seconds s"
  else
    ((seconds >= 1)) || fail "Jeu 1 left the best times but its saved time is 0 s"
  fi
  saved_seconds=$seconds
}
check_saved_game
step "saved game: level 1, $saved_seconds s"

quit_program
step "quit with status 0"

# --- second run: the saved game loaded back ---
start_program 2
step "second run"
menu_button 1
open_dialog launch_question_load none 3
answer 2
wait_gone "$dialog"
dialog=$(find_window 'Selecteur fichier')
geometry "$dialog"
[[ "$X,$Y ${WIDTH}x$HEIGHT" == "$((main_x + 150)),$((main_y + 150)) 300x300" ]] ||
  fail "the chooser lies at $X,$Y ${WIDTH}x$HEIGHT"
chooser_row 0
answer 1
wait_gone "$dialog"
board1 jeu1_resumed "$jeu1_targets1" "$jeu1_sockets1" --level 001
check_saved_game
step "Jeu 1 resumed at level 1"
menu_button 4
open_dialog abandon_resumed none 3
answer 1
wait_gone "$dialog"
quit_program
step "quit with status 0 again; all checks passed"
