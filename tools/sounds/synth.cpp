// SPDX-License-Identifier: MIT
#include "synth.h"

#include "plain_math.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kVoiceRelease = 0.004;
constexpr double kFadeIn = 0.002;
constexpr double kFadeOut = 0.006;
constexpr double kPeak = 0.7079457843841379; // -3 dBFS
constexpr double kFullScale = 32767.0;

int32_t samplesIn(double seconds)
{
    return static_cast<int32_t>(std::lround(seconds * kSampleRate));
}

// Rises smoothly from 0 at u = 0 to 1 at u = 1, with no corner at either end.
double smoothStep(double u)
{
    const double s = sineOfTurns(0.25 * std::clamp(u, 0.0, 1.0));
    return s * s;
}

// Attack, exponential decay and a short release before the end.
double envelope(double t, double attack, double decay, double length, double release)
{
    const double rise = attack > 0.0 ? smoothStep(t / attack) : 1.0;
    const double fall = exponential(-std::max(0.0, t - attack) / decay);
    const double end = smoothStep((length - t) / release);
    return rise * fall * end;
}

double uniformNoise(std::mt19937 &rng)
{
    return static_cast<double>(rng()) / 2147483648.0 - 1.0;
}

} // namespace

Signal silence(double seconds)
{
    return Signal(static_cast<size_t>(samplesIn(seconds)), 0.0);
}

void addVoice(Signal &signal, const Voice &voice)
{
    const int32_t first = samplesIn(voice.start);
    const int32_t count = samplesIn(voice.length);
    const int32_t last = std::min(first + count, static_cast<int32_t>(signal.size()));
    double phase = 0.0; // in turns of the fundamental
    for (int32_t i = first; i < last; ++i) {
        const double t = static_cast<double>(i - first) / kSampleRate;
        double sum = 0.0;
        for (const Partial &p : voice.partials)
            sum += p.level * sineOfTurns(phase * p.ratio)
                   * envelope(t, voice.attack, voice.decay * p.decayScale, voice.length, kVoiceRelease);
        signal[static_cast<size_t>(i)] += voice.level * sum;

        double frequency = voice.frequency;
        if (voice.endFrequency > 0.0)
            frequency += (voice.endFrequency - voice.frequency) * t / voice.length;
        phase += frequency / kSampleRate;
    }
}

void addNoise(Signal &signal, const NoiseBurst &burst, std::mt19937 &rng)
{
    const int32_t first = samplesIn(burst.start);
    const int32_t count = samplesIn(burst.length);
    const int32_t last = std::min(first + count, static_cast<int32_t>(signal.size()));
    double once = 0.0;
    double smoothed = 0.0;
    for (int32_t i = first; i < last; ++i) {
        const double t = static_cast<double>(i - first) / kSampleRate;
        const double tone = burst.fromTone + (burst.toTone - burst.fromTone) * t / burst.length;
        const double raw = uniformNoise(rng);
        once += tone * (raw - once);
        smoothed += tone * (once - smoothed);
        const double kept = burst.highPass ? raw - smoothed : smoothed;
        signal[static_cast<size_t>(i)] +=
            burst.level * kept * envelope(t, burst.attack, burst.decay, burst.length, kVoiceRelease);
    }
}

std::vector<int16_t> toPcm(Signal signal)
{
    const int32_t count = static_cast<int32_t>(signal.size());
    const int32_t fadeIn = samplesIn(kFadeIn);
    const int32_t fadeOut = samplesIn(kFadeOut);
    for (int32_t i = 0; i < count; ++i) {
        const double in = smoothStep(static_cast<double>(i) / fadeIn);
        const double out = smoothStep(static_cast<double>(count - 1 - i) / fadeOut);
        signal[static_cast<size_t>(i)] *= in * out;
    }

    double loudest = 0.0;
    for (double v : signal) loudest = std::max(loudest, std::fabs(v));
    const double gain = loudest > 0.0 ? kPeak * kFullScale / loudest : 0.0;

    std::vector<int16_t> samples;
    samples.reserve(signal.size());
    for (double v : signal) samples.push_back(static_cast<int16_t>(std::lround(v * gain)));
    return samples;
}
