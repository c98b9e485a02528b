// SPDX-License-Identifier: MIT
#include "wave_file.h"

#include <fstream>

namespace {

void putLittleEndian(std::string &out, uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>((value >> (8 * i)) & 0xFFu));
}

} // namespace

std::string waveBytes(const std::vector<int16_t> &samples, int32_t sampleRate)
{
    constexpr uint32_t kChannels = 1;
    constexpr uint32_t kBytesPerSample = 2;
    const uint32_t dataSize = static_cast<uint32_t>(samples.size()) * kBytesPerSample * kChannels;
    const uint32_t rate = static_cast<uint32_t>(sampleRate);

    std::string out;
    out.reserve(44 + dataSize);
    out += "RIFF";
    putLittleEndian(out, 36 + dataSize, 4);
    out += "WAVEfmt ";
    putLittleEndian(out, 16, 4); // size of the format chunk
    putLittleEndian(out, 1, 2);  // PCM
    putLittleEndian(out, kChannels, 2);
    putLittleEndian(out, rate, 4);
    putLittleEndian(out, rate * kChannels * kBytesPerSample, 4); // bytes per second
    putLittleEndian(out, kChannels * kBytesPerSample, 2);        // bytes per frame
    putLittleEndian(out, 8 * kBytesPerSample, 2);                // bits per sample
    out += "data";
    putLittleEndian(out, dataSize, 4);
    for (int16_t s : samples) putLittleEndian(out, static_cast<uint16_t>(s), 2);
    return out;
}

bool writeWaveFile(const std::filesystem::path &path, const std::vector<int16_t> &samples,
                   int32_t sampleRate)
{
    const std::string bytes = waveBytes(samples, sampleRate);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    return static_cast<bool>(file);
}
