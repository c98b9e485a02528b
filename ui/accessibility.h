// SPDX-License-Identifier: MIT
// What assistive technology is told of the program's windows: the picture buttons (the menu's hot
// spots, the dialogs' label buttons, the catalogue picture) as push buttons named by their words, with
// a press action that does what a click does; labels named by their meaning; and of a window's
// children, only those shown.
#pragma once

// Makes the program's windows known so; once is enough, more does no harm.
void installAccessibility();
