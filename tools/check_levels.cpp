// Checks the three shipped level stores: prints a table of figures per game and fails when any fact
// about the levels does not hold.
//   check_levels <folder holding niveaux1.dat, niveaux2.dat and niveaux3.dat>
#include "check_pairs.h"
#include "check_stones.h"
#include "check_tiles.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

namespace {

bool readStore(const std::string &path, std::string &bytes)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) return false;
    bytes.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::cerr << "usage: check_levels <levels folder>\n";
        return 2;
    }
    const std::string folder = argv[1];
    using Check = bool (*)(std::string_view, std::ostream &);
    const struct {
        const char *file;
        Check check;
    } games[] = {{"niveaux1.dat", checkTileLevels}, {"niveaux2.dat", checkStoneLevels}, {"niveaux3.dat", checkPairLevels}};

    bool ok = true;
    for (const auto &game : games) {
        std::string store;
        if (!readStore(folder + "/" + game.file, store)) {
            std::cout << game.file << ": cannot be read\n";
            ok = false;
            continue;
        }
        std::cout << "== " << game.file << "\n";
        ok = game.check(store, std::cout) && ok;
        std::cout << "\n";
    }
    std::cout << (ok ? "every level fact holds\n" : "some level facts do not hold\n");
    return ok ? 0 : 1;
}
