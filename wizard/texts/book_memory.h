#pragma once

#include <QByteArray>
#include <QDeadlineTimer>

#include <mspack.h>

namespace krt550 {

/// What libmspack takes for the world around it: one file to read, the book, and one to write, what is unpacked; both
/// in memory. Every request beyond what BeginRequest allows is refused, which ends the library's work with an error.
class CBookMemory : public mspack_system {
public:
    explicit CBookMemory(QByteArray book);
    CBookMemory(const CBookMemory&) = delete;
    CBookMemory& operator=(const CBookMemory&) = delete;

    /// Grants the next call of the library time, memory, and room for `outputLimit` bytes of output.
    void BeginRequest(qint64 outputLimit);

    qint64 GetSize() const { return m_book.size(); }
    bool HasTimedOut() const { return m_timedOut; }
    /// What the call has unpacked.
    QByteArray TakeOutput() { return std::move(m_output); }

private:
    struct Handle;

    static Handle& Of(mspack_file* file) { return *reinterpret_cast<Handle*>(file); }

    static mspack_file* Open(mspack_system* system, const char* name, int mode);
    static void Close(mspack_file* file);
    static int Read(mspack_file* file, void* to, int size);
    static int Write(mspack_file* file, void* from, int size);
    static int Seek(mspack_file* file, off_t offset, int mode);
    static off_t Tell(mspack_file* file);
    static void* Allocate(mspack_system* system, size_t size);

    QByteArray m_book;
    QByteArray m_output;
    qint64 m_outputLimit = 0;
    QDeadlineTimer m_deadline;
    bool m_timedOut = false;
};

} // namespace krt550
