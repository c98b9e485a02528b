// The offer to save, when a game is left or finished.
#pragma once

// Asks whether to save the running game, under its name or a new one, and writes it. Asks nothing
// unless a player name was given and a level has been won since the game was started or loaded.
void SauvePartie();
