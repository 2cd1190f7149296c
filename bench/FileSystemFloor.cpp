// The file-system floor of the catalogue: the least work that listing the games
// takes, in plain C++ on POSIX calls, without Qt. It lists each folder once, keeps
// the game files sorted by name, and reads from each game only the bytes that the
// header probe and the caption need. bench/run.sh times it beside lumbra-cli.
//
//   lumbra-floor-scan [FOLDER...]      prints the games found, the time and the peak memory
//   lumbra-floor-scan-qt [FOLDER...]   the same after making a QCoreApplication: the
//                                      floor of a program on Qt, which pays Qt's start
//
// With no folder it only starts and ends: the floor of a process's start-up.
#ifdef LUMBRA_FLOOR_IN_QT
#include <QCoreApplication>
#endif
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <string>
#include <strings.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::array<const char*, 8> GameExtensions = {"1",   "058", "078", "fig",
                                                       "sfc", "smc", "swc", "zip"};

// The probe's header starts, tried in the catalogue's order.
constexpr std::array<off_t, 3> HeaderStarts = {0x81C0, 0x7FC0, 0x101C0};
constexpr off_t ProbeOffset = 28;        // complement and checksum, two bytes each
constexpr std::size_t HeaderLength = 33; // the 21 title bytes and the rest of the header

struct Game {
    std::string Name;
    std::array<unsigned char, HeaderLength> Header{};
};

bool IsGameFile(const char* name) {
    const char* dot = std::strrchr(name, '.');
    if (name[0] == '.' || dot == nullptr)
        return false;
    return std::any_of(GameExtensions.begin(), GameExtensions.end(), [dot](const char* extension) {
        return strcasecmp(dot + 1, extension) == 0;
    });
}

bool IsArchive(const std::string& name) {
    return name.size() >= 4 && strcasecmp(name.c_str() + name.size() - 4, ".zip") == 0;
}

bool IsRegularFile(int folder, const dirent& entry) {
    if (entry.d_type == DT_REG)
        return true;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN)
        return false;
    struct stat status {};
    return fstatat(folder, entry.d_name, &status, 0) == 0 && S_ISREG(status.st_mode);
}

// Bytes past the end of the file read as zeros, as in the catalogue.
void ReadAt(int file, unsigned char* bytes, std::size_t count, off_t offset) {
    const ssize_t got = pread(file, bytes, count, offset);
    const std::size_t kept = got > 0 ? static_cast<std::size_t>(got) : 0;
    std::fill(bytes + kept, bytes + count, 0);
}

// The header start that the catalogue's probe settles on, or -1 for none.
off_t FindHeaderStart(int file) {
    std::size_t i = 0;
    while (i < HeaderStarts.size()) {
        unsigned char pair[4];
        ReadAt(file, pair, sizeof pair, HeaderStarts[i] + ProbeOffset);
        const unsigned complement = (pair[0] << 8) | pair[1];
        const unsigned checksum = (pair[2] << 8) | pair[3];
        if (complement == 0xFFFF && checksum == 0xFFFF) {
            if (i == HeaderStarts.size() - 1)
                return -1;
            i += 2; // a blank first candidate skips the second
        } else if ((complement | checksum) == 0xFFFF) {
            break;
        } else {
            ++i;
        }
    }
    return HeaderStarts[i < HeaderStarts.size() ? i : 0];
}

void ReadHeader(int folder, Game& game) {
    const int file = openat(folder, game.Name.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return;
    const off_t start = FindHeaderStart(file);
    if (start >= 0)
        ReadAt(file, game.Header.data(), HeaderLength, start);
    close(file);
}

// False when the folder cannot be listed.
bool ScanFolder(const char* path, std::vector<Game>& games) {
    DIR* listing = opendir(path);
    if (listing == nullptr)
        return false;
    const int folder = dirfd(listing);
    std::vector<Game> found;
    while (const dirent* entry = readdir(listing)) {
        if (IsGameFile(entry->d_name) && IsRegularFile(folder, *entry))
            found.push_back({entry->d_name, {}});
    }
    std::sort(found.begin(), found.end(), [](const Game& a, const Game& b) {
        return strcasecmp(a.Name.c_str(), b.Name.c_str()) < 0;
    });
    for (Game& game : found) {
        // An archive is not opened: its file name stands for its title.
        if (!IsArchive(game.Name))
            ReadHeader(folder, game);
        games.push_back(std::move(game));
    }
    closedir(listing);
    return true;
}

double NowSeconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

} // namespace

int main(int argc, char** argv) {
#ifdef LUMBRA_FLOOR_IN_QT
    // The start that every program on Qt pays, before the same work.
    const QCoreApplication application(argc, argv);
#endif
    const double start = NowSeconds();
    std::vector<Game> games;
    for (int i = 1; i < argc; ++i) {
        if (!ScanFolder(argv[i], games)) {
            std::perror(argv[i]);
            return 1;
        }
    }
    const double elapsed = NowSeconds() - start;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%zu games in %d folders in %.2f ms; peak memory %.1f MiB\n", games.size(),
                argc - 1, elapsed * 1e3, static_cast<double>(usage.ru_maxrss) / 1024.0);
    return 0;
}
