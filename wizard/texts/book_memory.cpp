#include "wizard/texts/book_memory.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace krt550 {
namespace {

/// Far more than a whole table of contents or a decoder takes.
constexpr size_t kMemory = 64 * 1024 * 1024;
constexpr qint64 kMilliseconds = 2000;

/// What the call in hand may still take. Not a member: the library asks for memory through copies of the system.
thread_local size_t memoryLeft = 0;

/// Takes the library's warnings.
void Ignore(mspack_file*, const char*, ...) {}

} // namespace

/// An open file: a place in the book, or the output.
struct CBookMemory::Handle {
    CBookMemory& memory;
    bool writes;
    qint64 at = 0;
};

CBookMemory::CBookMemory(QByteArray book) : mspack_system{}, m_book(std::move(book)) {
    open = Open;
    close = Close;
    read = Read;
    write = Write;
    seek = Seek;
    tell = Tell;
    message = Ignore;
    alloc = Allocate;
    free = std::free;
    copy = [](void* from, void* to, size_t size) { std::memcpy(to, from, size); };
}

void CBookMemory::BeginRequest(qint64 outputLimit) {
    m_output.clear();
    m_outputLimit = outputLimit;
    memoryLeft = kMemory;
    m_deadline = QDeadlineTimer(kMilliseconds);
    m_timedOut = false;
}

mspack_file* CBookMemory::Open(mspack_system* system, const char*, int mode) {
    if (mode != MSPACK_SYS_OPEN_READ && mode != MSPACK_SYS_OPEN_WRITE)
        return nullptr;
    return reinterpret_cast<mspack_file*>(
        new Handle{*static_cast<CBookMemory*>(system), mode == MSPACK_SYS_OPEN_WRITE});
}

void CBookMemory::Close(mspack_file* file) {
    delete &Of(file);
}

int CBookMemory::Read(mspack_file* file, void* to, int size) {
    Handle& handle = Of(file);
    CBookMemory& memory = handle.memory;
    memory.m_timedOut = memory.m_timedOut || memory.m_deadline.hasExpired();
    if (memory.m_timedOut || handle.writes || size < 0)
        return -1;
    const qint64 count = std::min<qint64>(size, memory.m_book.size() - handle.at);
    if (count > 0)
        std::memcpy(to, memory.m_book.constData() + handle.at, static_cast<size_t>(count));
    handle.at += count;
    return static_cast<int>(count);
}

int CBookMemory::Write(mspack_file* file, void* from, int size) {
    const Handle& handle = Of(file);
    QByteArray& output = handle.memory.m_output;
    if (!handle.writes || size < 0 || size > handle.memory.m_outputLimit - output.size())
        return -1;
    output.append(static_cast<const char*>(from), size);
    return size;
}

int CBookMemory::Seek(mspack_file* file, off_t offset, int mode) {
    Handle& handle = Of(file);
    const qint64 size = handle.memory.m_book.size();
    const qint64 base = mode == MSPACK_SYS_SEEK_CUR ? handle.at : mode == MSPACK_SYS_SEEK_END ? size : 0;
    if (handle.writes || offset < -base || offset > size - base)
        return -1;
    handle.at = base + offset;
    return 0;
}

off_t CBookMemory::Tell(mspack_file* file) {
    return Of(file).at;
}

void* CBookMemory::Allocate(mspack_system*, size_t size) {
    if (size > memoryLeft)
        return nullptr;
    memoryLeft -= size;
    return std::malloc(size);
}

} // namespace krt550
