// The floor of a warm list: the least work that listing the stored captions takes,
// in plain C++ on POSIX calls, without Qt. It reads the settings store
// ($XDG_CONFIG_HOME/Lumbra/Lumbra.conf) once, lists each game folder named there,
// and prints the stored caption of every game file found; it opens no game file.
// bench/run.sh times it beside lumbra-cli list.
//
//   lumbra-floor-list      prints the captions
//   lumbra-floor-list-qt   the same after making a QCoreApplication: the floor of a
//                          program on Qt, which pays Qt's start before any work
//
// It reads only what the benchmark's store holds: folder paths and captions
// without quotes or escapes inside them.
#ifdef LUMBRA_FLOOR_IN_QT
#include <QCoreApplication>
#endif
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <string>
#include <strings.h>
#include <unordered_map>
#include <vector>

namespace {

using Section = std::unordered_map<std::string, std::string>;

bool IsGameFile(const char* name) {
    static const char* const extensions[] = {"1", "058", "078", "fig", "sfc", "smc", "swc", "zip"};
    const char* dot = std::strrchr(name, '.');
    if (name[0] == '.' || dot == nullptr)
        return false;
    return std::any_of(std::begin(extensions), std::end(extensions), [dot](const char* extension) {
        return strcasecmp(dot + 1, extension) == 0;
    });
}

// A name as the store file writes it: letters, digits and "_-." kept, "/" as "\",
// every other byte as %XX.
std::string EscapedName(const std::string& name) {
    static const char hex[] = "0123456789ABCDEF";
    std::string escaped;
    for (const unsigned char c : name) {
        if (std::isalnum(c) || c == '_' || c == '-' || c == '.') {
            escaped += static_cast<char>(c);
        } else if (c == '/') {
            escaped += '\\';
        } else {
            escaped += '%';
            escaped += hex[c >> 4];
            escaped += hex[c & 0xF];
        }
    }
    return escaped;
}

// The section of a folder's games: the lower-case folder, its "%" and "/" escaped
// by the store, then the whole name escaped by the file.
std::string GameSection(const std::string& folder) {
    std::string name = "Game List\\";
    for (const char c : folder) {
        const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        name += lower == '%' ? "%25" : lower == '/' ? "%2F" : std::string(1, lower);
    }
    return EscapedName(name);
}

std::unordered_map<std::string, Section> ReadStore(const std::string& path) {
    std::unordered_map<std::string, Section> sections;
    FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr)
        return sections;
    std::string text;
    char buffer[65536];
    for (std::size_t got; (got = std::fread(buffer, 1, sizeof buffer, file)) > 0;)
        text.append(buffer, got);
    std::fclose(file);
    Section* section = nullptr;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        const std::string_view line(text.data() + start, end - start);
        if (!line.empty() && line.front() == '[') {
            section = &sections[std::string(line.substr(1, line.find(']') - 1))];
        } else if (const std::size_t equals = line.find('='); section && equals != line.npos) {
            std::string_view value = line.substr(equals + 1);
            if (value.size() >= 2 && value.front() == '"')
                value = value.substr(1, value.size() - 2);
            (*section)[std::string(line.substr(0, equals))] = std::string(value);
        }
        start = end + 1;
    }
    return sections;
}

} // namespace

int main([[maybe_unused]] int argc, [[maybe_unused]] char** argv) {
#ifdef LUMBRA_FLOOR_IN_QT
    // The start that every program on Qt pays, before the same work.
    const QCoreApplication application(argc, argv);
#endif
    const char* config = std::getenv("XDG_CONFIG_HOME");
    const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
    const std::string path =
        (config ? std::string(config) : home + "/.config") + "/Lumbra/Lumbra.conf";
    const auto sections = ReadStore(path);
    const auto folders = sections.find("Folders%5CGame%20Folders");
    std::vector<std::string> folderPaths;
    if (folders != sections.end()) {
        for (const auto& [key, value] : folders->second)
            folderPaths.push_back(value);
    }
    std::sort(folderPaths.begin(), folderPaths.end()); // the keys "00" to "99" in order
    std::size_t games = 0;
    for (const std::string& folder : folderPaths) {
        const auto stored = sections.find(GameSection(folder));
        DIR* listing = opendir(folder.c_str());
        if (listing == nullptr)
            continue;
        std::vector<std::string> names;
        while (const dirent* entry = readdir(listing)) {
            if (IsGameFile(entry->d_name))
                names.emplace_back(entry->d_name);
        }
        closedir(listing);
        std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
            return strcasecmp(a.c_str(), b.c_str()) < 0;
        });
        for (std::string& name : names) {
            std::transform(name.begin(), name.end(), name.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
            std::string caption = name;
            if (stored != sections.end()) {
                const auto value = stored->second.find(EscapedName(name));
                if (value != stored->second.end())
                    caption = value->second.substr(0, value->second.find(';'));
            }
            std::printf("%s\n", caption.c_str());
            ++games;
        }
    }
    return games > 0 ? 0 : 1;
}
