#include "host/line_writer.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace krt550 {
namespace {

constexpr int kPatienceMs = 500;

QString LastError() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool IsRegularFile(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

/// Keeps others off a file; devices and pipes may be shared.
bool TakeFile(int descriptor, QString& error) {
    if (!IsRegularFile(descriptor))
        return true;
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0)
        error = errno == EWOULDBLOCK ? QStringLiteral("another program is writing it") : LastError();
    else if (ftruncate(descriptor, 0) != 0)
        error = LastError();
    return error.isEmpty();
}

} // namespace

CLineWriter::CLineWriter(int descriptor, QString name, std::function<void(const QString&)> complain)
    : m_descriptor(descriptor), m_name(std::move(name)), m_complain(std::move(complain)) {}

void CLineWriter::Write(const QByteArray& line) {
    if (m_isOver)
        return;
    if (!IsReady()) {
        if (m_leftOut++ == 0)
            m_complain(QStringLiteral("%1: nobody reads it; lines are left out until somebody does").arg(m_name));
        m_hasFailed = true;
        return;
    }
    QByteArray bytes = line + '\n';
    if (m_leftOut > 0)
        bytes.prepend("# " + QByteArray::number(std::exchange(m_leftOut, 0)) + " lines were left out here\n");
    if (WriteAll(bytes))
        return;
    m_hasFailed = m_isOver = true;
    m_complain(
        QStringLiteral("%1: cannot be written any more: %2; the run goes on without it").arg(m_name, LastError()));
}

bool CLineWriter::IsReady() {
    pollfd state{m_descriptor, POLLOUT, 0};
    // An error is for the write to find.
    return poll(&state, 1, m_leftOut == 0 ? kPatienceMs : 0) != 0;
}

bool CLineWriter::WriteAll(const QByteArray& bytes) {
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written = write(m_descriptor, bytes.constData() + done, size_t(bytes.size() - done));
        if (written < 0 && errno != EINTR)
            return false;
        done += std::max<ssize_t>(written, 0);
    }
    return true;
}

int OpenLogFile(const QString& path, QString& error) {
    constexpr mode_t kForAllToRead = 0644;
    const int descriptor =
        open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, kForAllToRead);
    if (descriptor < 0) {
        error = LastError();
        return -1;
    }
    if (TakeFile(descriptor, error))
        return descriptor;
    close(descriptor);
    return -1;
}

} // namespace krt550
