# SPDX-License-Identifier: MIT
# Who may include what, read from the #include lines of the sources:
# - code with no window (the models, the shared record, the file formats, the level tools and
#   generators) includes no header of Qt Widgets and not frmFond.h;
# - in the program, only the main window itself, play control, the game screens and the dialogs
#   include frmFond.h. The tests, the benchmarks and the help pictures drive the whole window.
#
#   cmake -DROOT=<source folder> -DWIDGETS=<Qt Widgets header folder> -P check_includes.cmake

cmake_minimum_required(VERSION 3.25)

file(GLOB widget_headers RELATIVE ${WIDGETS} ${WIDGETS}/*)
list(APPEND widget_headers QtWidgets)

set(windowless
  games/neighbours.h games/*/*_board.*
  core/*.h core/modBase.cpp core/blanks.cpp core/level_store.cpp core/program_folder.cpp core/running_instance.cpp
  records/best_times.* records/best_times_file.* records/best_times_table.* records/codepage.*
  records/saved_game_file.* records/text_fields.* records/whole_file.*
  tools/common/* tools/tiles/* tools/stones/* tools/pairs/* tools/sounds/*)
set(may_include_window
  ui/frmFond.cpp ui/main.cpp ui/frm*.cpp
  core/startup.cpp core/game_clock.cpp core/play_control.cpp
  games/*/*_screen.cpp games/pairs/pairs_end_of_level.cpp
  records/frm*.cpp)

list(TRANSFORM windowless PREPEND ${ROOT}/)
list(TRANSFORM may_include_window PREPEND ${ROOT}/)
file(GLOB windowless_files ${windowless})
file(GLOB window_users ${may_include_window})
file(GLOB program_files ${ROOT}/core/* ${ROOT}/games/* ${ROOT}/games/*/* ${ROOT}/records/* ${ROOT}/ui/*)
list(FILTER windowless_files INCLUDE REGEX "\\.(h|cpp)$")
list(FILTER program_files INCLUDE REGEX "\\.(h|cpp)$")

# The headers a file includes, by the name written between the quotes or the angle brackets.
function(included_headers file out)
  file(STRINGS ${file} lines REGEX "^[ \t]*#[ \t]*include")
  set(names)
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*[<\"]([^>\"]+)[>\"].*$" "\\1" name "${line}")
    list(APPEND names ${name})
  endforeach()
  set(${out} ${names} PARENT_SCOPE)
endfunction()

set(broken)
foreach(file IN LISTS windowless_files)
  included_headers(${file} names)
  foreach(name IN LISTS names)
    string(REGEX REPLACE "^QtWidgets/" "" bare ${name})
    if(bare IN_LIST widget_headers OR name STREQUAL "frmFond.h")
      file(RELATIVE_PATH shown ${ROOT} ${file})
      list(APPEND broken "${shown} has no window but includes ${name}")
    endif()
  endforeach()
endforeach()
foreach(file IN LISTS program_files)
  if(file IN_LIST window_users)
    continue()
  endif()
  included_headers(${file} names)
  if("frmFond.h" IN_LIST names)
    file(RELATIVE_PATH shown ${ROOT} ${file})
    list(APPEND broken "${shown} includes frmFond.h: only the window, play control, the game screens and the dialogs may")
  endif()
endforeach()

list(LENGTH windowless_files checked)
if(broken OR checked EQUAL 0)
  list(JOIN broken "\n" text)
  message(FATAL_ERROR "include rules broken (${checked} windowless files read):\n${text}")
endif()
