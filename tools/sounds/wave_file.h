// SPDX-License-Identifier: MIT
#pragma once

// Canonical RIFF wave files: a 44-byte header followed by 16-bit mono PCM samples.
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

std::string waveBytes(const std::vector<int16_t> &samples, int32_t sampleRate);

// False when the file cannot be written whole.
bool writeWaveFile(const std::filesystem::path &path, const std::vector<int16_t> &samples,
                   int32_t sampleRate);
