// SPDX-License-Identifier: MIT
#include "cues.h"

#include "sound_cues.h"

#include <random>

namespace {

// Equal-tempered pitches, in Hz.
constexpr double kC4 = 261.63;
constexpr double kG4 = 392.00;
constexpr double kC5 = 523.25;
constexpr double kD5 = 587.33;
constexpr double kE5 = 659.26;
constexpr double kG5 = 783.99;
constexpr double kA5 = 880.00;
constexpr double kB5 = 987.77;
constexpr double kC6 = 1046.50;
constexpr double kE6 = 1318.51;

// A bright brass-like tone whose upper partials die away before the fundamental.
const std::vector<Partial> kBright{
    {1.0, 1.00, 1.0}, {2.0, 0.55, 0.7}, {3.0, 0.35, 0.5},
    {4.0, 0.22, 0.4}, {5.0, 0.12, 0.3}, {6.0, 0.07, 0.25},
};

// A small bell: a hum below the strike note and a few inharmonic overtones that fade fast.
const std::vector<Partial> kBell{
    {1.0, 1.00, 1.0}, {0.5, 0.15, 1.4}, {2.0, 0.30, 0.6}, {2.76, 0.20, 0.45}, {5.40, 0.08, 0.3},
};

// A round, nearly pure tone.
const std::vector<Partial> kSoft{{1.0, 1.0, 1.0}, {2.0, 0.2, 0.6}, {3.0, 0.06, 0.4}};

// The bending modes of a small block of hard wood.
const std::vector<Partial> kWood{
    {1.0, 1.00, 1.0}, {2.32, 0.60, 0.6}, {4.89, 0.35, 0.35}, {8.17, 0.15, 0.25},
};

// Game won: G4 C5 E5 G5 climbing quickly, then a C major chord held and let ring.
Signal winFanfare()
{
    Signal s = silence(1.6);
    const double steps[] = {kG4, kC5, kE5, kG5};
    for (int i = 0; i < 4; ++i)
        addVoice(s, Voice{.start = 0.1 * i, .length = 0.24, .frequency = steps[i], .attack = 0.008,
                          .decay = 0.25, .level = 0.8, .partials = kBright});
    const double chord[] = {kC4, kC5, kE5, kG5, kC6};
    const double weight[] = {0.35, 0.5, 0.45, 0.45, 0.35};
    for (int i = 0; i < 5; ++i)
        addVoice(s, Voice{.start = 0.42, .length = 1.18, .frequency = chord[i], .attack = 0.02,
                          .decay = 0.7, .level = weight[i], .partials = kBright});
    return s;
}

// Level ready: two soft bell strokes a fifth apart, the second one higher.
Signal levelChime()
{
    Signal s = silence(0.6);
    addVoice(s, Voice{.start = 0.0, .length = 0.45, .frequency = kA5, .attack = 0.004, .decay = 0.16,
                      .partials = kBell});
    addVoice(s, Voice{.start = 0.16, .length = 0.44, .frequency = kE6, .attack = 0.004, .decay = 0.18,
                      .level = 0.8, .partials = kBell});
    return s;
}

// Move taken back: a round blip sliding down an octave.
Signal takeBack()
{
    Signal s = silence(0.22);
    addVoice(s, Voice{.start = 0.0, .length = 0.21, .frequency = kB5, .endFrequency = kB5 / 2,
                      .attack = 0.012, .decay = 0.12, .partials = kSoft});
    return s;
}

// Dialog opening: a breath of noise brightening as it swells, under two rising pops.
Signal dialogOpen()
{
    Signal s = silence(0.28);
    std::mt19937 rng(8);
    addNoise(s, NoiseBurst{.start = 0.0, .length = 0.27, .attack = 0.13, .decay = 0.04, .level = 0.5,
                           .fromTone = 0.03, .toTone = 0.35},
             rng);
    addVoice(s, Voice{.start = 0.05, .length = 0.09, .frequency = kD5, .attack = 0.004, .decay = 0.05,
                      .level = 0.6, .partials = kSoft});
    addVoice(s, Voice{.start = 0.13, .length = 0.14, .frequency = kA5, .attack = 0.004, .decay = 0.06,
                      .level = 0.6, .partials = kSoft});
    return s;
}

// Dialog button: a crisp, high tick with a hiss of a snap on top.
Signal buttonClick()
{
    Signal s = silence(0.07);
    std::mt19937 rng(9);
    addVoice(s, Voice{.start = 0.0, .length = 0.065, .frequency = 2600.0, .attack = 0.0005,
                      .decay = 0.012, .partials = {{1.0, 1.0, 1.0}, {1.5, 0.4, 0.7}}});
    addNoise(s, NoiseBurst{.start = 0.0, .length = 0.015, .attack = 0.0005, .decay = 0.004, .level = 0.5,
                           .fromTone = 0.5, .toTone = 0.5, .highPass = true},
             rng);
    return s;
}

// Board click: a dry, low knock on wood, with a dull thump at the strike.
Signal boardKnock()
{
    Signal s = silence(0.1);
    std::mt19937 rng(10);
    addVoice(s, Voice{.start = 0.0, .length = 0.095, .frequency = 190.0, .attack = 0.001, .decay = 0.03,
                      .partials = kWood});
    addNoise(s, NoiseBurst{.start = 0.0, .length = 0.02, .attack = 0.0005, .decay = 0.006, .level = 0.4,
                           .fromTone = 0.15, .toTone = 0.15},
             rng);
    return s;
}

} // namespace

const std::vector<Cue> &allCues()
{
    static const std::vector<Cue> cues{
        {cue::kWin, winFanfare},     {cue::kNewLevel, levelChime}, {cue::kTakeBack, takeBack},
        {cue::kDialog, dialogOpen}, {cue::kClick, buttonClick},   {cue::kBoardMove, boardKnock},
    };
    return cues;
}
