// SPDX-License-Identifier: MIT
// Writes the program's six sound cues as wave files into the folder given on the command line.
// The output is the same, byte for byte, on every run.
#include "cues.h"
#include "wave_file.h"

#include <filesystem>
#include <iostream>
#include <system_error>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "usage: generate_sounds <output folder>\n";
        return 2;
    }
    const std::filesystem::path folder(argv[1]);
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        std::cerr << "cannot create " << folder << ": " << error.message() << '\n';
        return 1;
    }
    for (const Cue &cue : allCues()) {
        if (!writeWaveFile(folder / cue.fileName, toPcm(cue.make()), kSampleRate)) {
            std::cerr << "cannot write " << (folder / cue.fileName) << '\n';
            return 1;
        }
    }
    return 0;
}
