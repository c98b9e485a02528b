// SPDX-License-Identifier: MIT
// The wave player behind the sound control. It lives in a module of its own beside the program, so
// that the sound libraries are loaded only once the window has shown or a cue is asked for.
#pragma once

#include <QString>
#include <QtPlugin>

class CuePlayer {
public:
    virtual ~CuePlayer() = default;
    // Loads a wave ahead of its first play, so that the first play starts at once.
    virtual void load(const QString &path) = 0;
    virtual void stop(const QString &path) = 0;
    // Plays a wave from its start; a wave still loading plays from its start once it is loaded.
    virtual void play(const QString &path) = 0;
};

#define CuePlayer_iid "fr.cerisaie.Marelle.CuePlayer/1"
Q_DECLARE_INTERFACE(CuePlayer, CuePlayer_iid)

// The file name of the module, in the program's folder.
inline constexpr char kCuePlayerModule[] = "marelle-sound.so";
