#include "FuzzSeeds.h"

#include <filesystem>
#include <fstream>
#include <iostream>

// Writes a fuzz target's seeds into its corpus folder. Inputs the fuzzer added to the
// folder on earlier runs stay.
int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: " << argv[0] << " CORPUS_FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    for (const FuzzSeed& seed : FuzzSeeds()) {
        std::ofstream file(folder / seed.name, std::ios::binary | std::ios::trunc);
        file << seed.bytes;
        if (!file) {
            std::cerr << "cannot write " << (folder / seed.name) << '\n';
            return 1;
        }
    }
    return 0;
}
