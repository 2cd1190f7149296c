#pragma once

#include <string>
#include <vector>

// One starting input of a fuzz target's corpus, written to a file of that name.
struct FuzzSeed {
    std::string name;
    std::string bytes;
};

// The seeds of the fuzz target that the seed writer is built for.
std::vector<FuzzSeed> FuzzSeeds();
