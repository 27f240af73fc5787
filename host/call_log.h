#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

namespace krt550 {

/// Writes one line for each drive call, tab-separated:
///   time [ms since start]   call   register   value   outcome
/// Columns that say nothing for a call are empty. A value is the raw word of a register, or what a query answered;
/// the outcome is "ok", or what went wrong.
class CCallLog {
public:
    using Output = std::function<void(const QByteArray& line)>;

    /// `output` may be null; with `keep` the lines also stay available for Lines.
    CCallLog(Output output, bool keep);

    /// Notes a call that concerns a register.
    void NoteRegister(const char* call, quint16 reg, quint16 word, const QString& error);
    /// Notes any other call; an empty `error` means that it went well.
    void Note(const char* call, const QString& value, const QString& error);

    const QStringList& Lines() const { return m_lines; }
    /// Forgets the kept lines; what has been written stays written.
    void Clear() { m_lines.clear(); }

private:
    void Append(const QStringList& columns);

    Output m_output;
    bool m_keep;
    qint64 m_start;
    QStringList m_lines;
};

} // namespace krt550
