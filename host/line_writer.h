#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace krt550 {

/// Writes lines to a file, a pipe or a terminal, each in one go and at once. What becomes of the output never stands
/// between the wizard and the drive: a reader that does not read is waited for half a second, then lines are left out
/// and counted; a full disk or a reader that has gone is told once, and nothing more is written.
class CLineWriter {
public:
    /// `name` says in messages what is written to. The descriptor is borrowed.
    CLineWriter(int descriptor, QString name, std::function<void(const QString&)> complain);

    /// `line` without its end.
    void Write(const QByteArray& line);
    /// Something could not be written.
    bool HasFailed() const { return m_hasFailed; }

private:
    bool IsReady();
    bool WriteAll(const QByteArray& bytes);

    int m_descriptor;
    QString m_name;
    std::function<void(const QString&)> m_complain;
    bool m_hasFailed = false;
    bool m_isOver = false;
    int m_leftOut = 0; ///< lines since the reader was last seen reading
};

/// Opens a log for appending and empties it; -1 and the reason in `error` when that cannot be. A log is one program's:
/// a second one is refused, because two stories in one file can be read by nobody.
int OpenLogFile(const QString& path, QString& error);

} // namespace krt550
