#include "rom/ArchiveLibrary.h"

#include <archive.h>
#include <archive_entry.h>
#include <array>
#include <dlfcn.h>

// The functions Lumbra calls, each with the index of its address in an opened library.
#define LUMBRA_ARCHIVE_FUNCTIONS(X)                                                                \
    X(archive_version_string)                                                                      \
    X(archive_error_string)                                                                        \
    X(archive_read_new)                                                                            \
    X(archive_read_support_format_zip)                                                             \
    X(archive_read_set_passphrase_callback)                                                        \
    X(archive_read_open_filename)                                                                  \
    X(archive_read_next_header)                                                                    \
    X(archive_read_data)                                                                           \
    X(archive_read_free)                                                                           \
    X(archive_write_new)                                                                           \
    X(archive_write_set_format_zip)                                                                \
    X(archive_write_set_bytes_in_last_block)                                                       \
    X(archive_write_set_options)                                                                   \
    X(archive_write_set_passphrase)                                                                \
    X(archive_write_open2)                                                                         \
    X(archive_write_header)                                                                        \
    X(archive_write_data)                                                                          \
    X(archive_write_close)                                                                         \
    X(archive_write_free)                                                                          \
    X(archive_entry_new)                                                                           \
    X(archive_entry_free)                                                                          \
    X(archive_entry_pathname)                                                                      \
    X(archive_entry_pathname_utf8)                                                                 \
    X(archive_entry_hardlink)                                                                      \
    X(archive_entry_filetype)                                                                      \
    X(archive_entry_size)                                                                          \
    X(archive_entry_size_is_set)                                                                   \
    X(archive_entry_mtime)                                                                         \
    X(archive_entry_mtime_is_set)                                                                  \
    X(archive_entry_is_encrypted)                                                                  \
    X(archive_entry_set_pathname_utf8)                                                             \
    X(archive_entry_set_filetype)                                                                  \
    X(archive_entry_set_perm)                                                                      \
    X(archive_entry_set_size)                                                                      \
    X(archive_entry_set_mtime)

namespace {

// libarchive 3 has kept this soname since 3.0.
constexpr const char* LibArchiveFileName = "libarchive.so.13";

enum FunctionIndex {
#define LUMBRA_INDEX(name) Index_##name,
    LUMBRA_ARCHIVE_FUNCTIONS(LUMBRA_INDEX)
#undef LUMBRA_INDEX
        FunctionCount
};

constexpr std::array<const char*, FunctionCount> FunctionNames = {
#define LUMBRA_NAME(name) #name,
    LUMBRA_ARCHIVE_FUNCTIONS(LUMBRA_NAME)
#undef LUMBRA_NAME
};

struct Library {
    void* Handle = nullptr;
    std::array<void*, FunctionCount> Functions{};
    QString Problem;
};

Library Open(const char* fileName) {
    Library library;
    library.Handle = dlopen(fileName, RTLD_NOW | RTLD_LOCAL);
    if (!library.Handle) {
        library.Problem = QString::fromLocal8Bit(dlerror());
        return library;
    }
    for (int index = 0; index < FunctionCount; ++index) {
        library.Functions[index] = dlsym(library.Handle, FunctionNames[index]);
        if (!library.Functions[index]) {
            library.Problem = QString::fromLocal8Bit(fileName) + QStringLiteral(" has no ") +
                              QString::fromLatin1(FunctionNames[index]);
            dlclose(library.Handle);
            library.Handle = nullptr;
            return library;
        }
    }
    return library;
}

const Library& Loaded() {
    static const Library library = Open(LibArchiveFileName);
    return library;
}

template <FunctionIndex Index, typename Function> Function Real(Function /*prototype*/) {
    return reinterpret_cast<Function>(Loaded().Functions[Index]);
}

} // namespace

QString ArchiveLibraryProblem() {
    return Loaded().Problem;
}

QString ArchiveLibraryProblemWith(const char* fileName) {
    const Library library = Open(fileName);
    if (library.Handle)
        dlclose(library.Handle);
    return library.Problem;
}

// Forwards name(arguments) to the opened library.
#define LUMBRA_FORWARD(name, arguments) Real<Index_##name>(&name) arguments

// The three constructors, and the version, answer for a library that could not be opened.
const char* archive_version_string() {
    return Loaded().Handle ? LUMBRA_FORWARD(archive_version_string, ()) : "libarchive (not loaded)";
}
struct archive* archive_read_new() {
    return Loaded().Handle ? LUMBRA_FORWARD(archive_read_new, ()) : nullptr;
}
struct archive* archive_write_new() {
    return Loaded().Handle ? LUMBRA_FORWARD(archive_write_new, ()) : nullptr;
}
struct archive_entry* archive_entry_new() {
    return Loaded().Handle ? LUMBRA_FORWARD(archive_entry_new, ()) : nullptr;
}

const char* archive_error_string(struct archive* a) {
    return LUMBRA_FORWARD(archive_error_string, (a));
}
int archive_read_support_format_zip(struct archive* a) {
    return LUMBRA_FORWARD(archive_read_support_format_zip, (a));
}
int archive_read_set_passphrase_callback(struct archive* a, void* data,
                                         archive_passphrase_callback* callback) {
    return LUMBRA_FORWARD(archive_read_set_passphrase_callback, (a, data, callback));
}
int archive_read_open_filename(struct archive* a, const char* fileName, size_t blockSize) {
    return LUMBRA_FORWARD(archive_read_open_filename, (a, fileName, blockSize));
}
int archive_read_next_header(struct archive* a, struct archive_entry** entry) {
    return LUMBRA_FORWARD(archive_read_next_header, (a, entry));
}
la_ssize_t archive_read_data(struct archive* a, void* buffer, size_t size) {
    return LUMBRA_FORWARD(archive_read_data, (a, buffer, size));
}
int archive_read_free(struct archive* a) {
    return LUMBRA_FORWARD(archive_read_free, (a));
}
int archive_write_set_format_zip(struct archive* a) {
    return LUMBRA_FORWARD(archive_write_set_format_zip, (a));
}
int archive_write_set_bytes_in_last_block(struct archive* a, int bytes) {
    return LUMBRA_FORWARD(archive_write_set_bytes_in_last_block, (a, bytes));
}
int archive_write_set_options(struct archive* a, const char* options) {
    return LUMBRA_FORWARD(archive_write_set_options, (a, options));
}
int archive_write_set_passphrase(struct archive* a, const char* passphrase) {
    return LUMBRA_FORWARD(archive_write_set_passphrase, (a, passphrase));
}
int archive_write_open2(struct archive* a, void* data, archive_open_callback* open,
                        archive_write_callback* write, archive_close_callback* close,
                        archive_free_callback* free) {
    return LUMBRA_FORWARD(archive_write_open2, (a, data, open, write, close, free));
}
int archive_write_header(struct archive* a, struct archive_entry* entry) {
    return LUMBRA_FORWARD(archive_write_header, (a, entry));
}
la_ssize_t archive_write_data(struct archive* a, const void* data, size_t size) {
    return LUMBRA_FORWARD(archive_write_data, (a, data, size));
}
int archive_write_close(struct archive* a) {
    return LUMBRA_FORWARD(archive_write_close, (a));
}
int archive_write_free(struct archive* a) {
    return LUMBRA_FORWARD(archive_write_free, (a));
}
void archive_entry_free(struct archive_entry* entry) {
    LUMBRA_FORWARD(archive_entry_free, (entry));
}
const char* archive_entry_pathname(struct archive_entry* entry) {
    return LUMBRA_FORWARD(archive_entry_pathname, (entry));
}
const char* archive_entry_pathname_utf8(struct archive_entry* entry) {
    return LUMBRA_FORWARD(archive_entry_pathname_utf8, (entry));
}
const char* archive_entry_hardlink(struct archive_entry* entry) {
    return LUMBRA_FORWARD(archive_entry_hardlink, (entry));
}
__LA_MODE_T archive_entry_filetype(struct archive_entry* entry) {
    return LUMBRA_FORWARD(archive_entry_filetype, (entry));
}
la_int64_t archive_entry_size(struct archive_entry* entry) {
    return LUMBRA_FORWARD(archive_entry_size, (entry));
}
int archive_entry_size_is_set(struct archive_entry* entry) {
    return LUMBRA_FORWARD(archive_entry_size_is_set, (entry));
}
time_t archive_entry_mtime(struct archive_entry* entry) {
    return LUMBRA_FORWARD(archive_entry_mtime, (entry));
}
int archive_entry_mtime_is_set(struct archive_entry* entry) {
    return LUMBRA_FORWARD(archive_entry_mtime_is_set, (entry));
}
int archive_entry_is_encrypted(struct archive_entry* entry) {
    return LUMBRA_FORWARD(archive_entry_is_encrypted, (entry));
}
void archive_entry_set_pathname_utf8(struct archive_entry* entry, const char* name) {
    LUMBRA_FORWARD(archive_entry_set_pathname_utf8, (entry, name));
}
void archive_entry_set_filetype(struct archive_entry* entry, unsigned int type) {
    LUMBRA_FORWARD(archive_entry_set_filetype, (entry, type));
}
void archive_entry_set_perm(struct archive_entry* entry, __LA_MODE_T mode) {
    LUMBRA_FORWARD(archive_entry_set_perm, (entry, mode));
}
void archive_entry_set_size(struct archive_entry* entry, la_int64_t size) {
    LUMBRA_FORWARD(archive_entry_set_size, (entry, size));
}
void archive_entry_set_mtime(struct archive_entry* entry, time_t seconds, long nanoseconds) {
    LUMBRA_FORWARD(archive_entry_set_mtime, (entry, seconds, nanoseconds));
}
