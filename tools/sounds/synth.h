// SPDX-License-Identifier: MIT
#pragma once

// Additive synthesis of short cues: enveloped tones made of partials, shaped noise, and the
// final pass that turns the mix into 16-bit samples.
#include <cstdint>
#include <random>
#include <vector>

constexpr int32_t kSampleRate = 44100;

using Signal = std::vector<double>;

// Silence lasting the given number of seconds.
Signal silence(double seconds);

struct Partial {
    double ratio = 1.0;      // frequency as a multiple of the voice's
    double level = 1.0;      // relative to the voice's level
    double decayScale = 1.0; // this partial's decay time as a share of the voice's
};

struct Voice {
    double start = 0.0;        // seconds into the cue
    double length = 0.1;       // seconds; the voice fades out over its last few milliseconds
    double frequency = 440.0;  // Hz at the start
    double endFrequency = 0.0; // Hz at the end, reached in a straight line; 0 keeps the pitch
    double attack = 0.005;     // seconds to full level
    double decay = 0.5;        // seconds for the level to fall to 1/e after the attack
    double level = 1.0;
    std::vector<Partial> partials{Partial{}};
};

struct NoiseBurst {
    double start = 0.0;
    double length = 0.05;
    double attack = 0.001;
    double decay = 0.01;
    double level = 1.0;
    // Smoothing of the noise, from 0 (dull) to 1 (untouched), at the start and at the end.
    double fromTone = 1.0;
    double toTone = 1.0;
    bool highPass = false; // keep what the smoothing takes away instead of what it leaves
};

void addVoice(Signal &signal, const Voice &voice);
void addNoise(Signal &signal, const NoiseBurst &burst, std::mt19937 &rng);

// Fades both ends to silence, scales the loudest sample to -3 dBFS and rounds to 16 bits.
std::vector<int16_t> toPcm(Signal signal);
