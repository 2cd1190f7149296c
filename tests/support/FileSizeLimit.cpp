#include "support/FileSizeLimit.h"

#include <csignal>
#include <sys/resource.h>

namespace {

void SetSoftLimit(rlim_t bytes) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

} // namespace

FileSizeLimit::FileSizeLimit(qint64 bytes) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    m_saved = static_cast<qint64>(limit.rlim_cur);
    std::signal(SIGXFSZ, SIG_IGN);
    SetSoftLimit(static_cast<rlim_t>(bytes));
}

FileSizeLimit::~FileSizeLimit() {
    SetSoftLimit(static_cast<rlim_t>(m_saved));
}

void LimitChildFileSize(QProcess& process, qint64 bytes) {
    process.setChildProcessModifier([bytes] {
        std::signal(SIGXFSZ, SIG_IGN); // an ignored signal stays ignored across exec
        SetSoftLimit(static_cast<rlim_t>(bytes));
    });
}
