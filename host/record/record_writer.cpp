#include "host/record/record_writer.h"

#include "host/record/record_head.h"

#include <QDateTime>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace krt550 {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 500ms;
constexpr auto kOpeningPatience = 10s;
constexpr auto kEndPatience = 5000ms;
constexpr auto kTogether = 1s;
constexpr std::size_t kLongestQueue = 50'000;

} // namespace

struct CRecordWriter::Shared {
    // Nobody holds it for longer than it takes to move a pointer. Whoever asks gives up after a moment all the same:
    // the stop of a crashed program passes here too.
    std::timed_mutex mutex;
    std::condition_variable_any wake;    ///< the writing thread
    std::condition_variable_any advance; ///< whoever waits for it

    std::vector<RecordRow> queue;
    bool isUrgent = false;
    bool isEnding = false;
    quint64 appended = 0;
    quint64 done = 0;              ///< written, or lost
    std::optional<QString> opened; ///< empty text: it is open; another one: why not
    QString trouble;
    bool hasEnded = false;

    std::atomic<qint64> lost = 0; ///< since the last mark in the record
    std::atomic<bool> hasGaps = false;

    bool IsNext() const { return isUrgent || isEnding; }
    void Lose(qint64 rows) {
        lost += rows;
        hasGaps = true;
    }
    std::vector<RecordRow> TakeRows();
    void WriteRows(CRecordStore* store, std::vector<RecordRow> rows);
};

CRecordWriter::CRecordWriter(RecordStoreMaker makeStore, std::function<void(const QString&)> complain)
    : m_makeStore(std::move(makeStore)), m_complain(std::move(complain)), m_shared(std::make_shared<Shared>()) {}

bool CRecordWriter::Open(const QString& path, const RecordSession& session, QString& error) {
    m_path = path;
    m_session = session;
    if (IsPlainlyRecord(path))
        return true;
    Start();
    std::unique_lock lock(m_shared->mutex);
    if (!m_shared->advance.wait_for(lock, kOpeningPatience, [this] { return m_shared->opened.has_value(); }))
        error = QStringLiteral("the disk does not answer");
    else
        error = *m_shared->opened;
    return error.isEmpty();
}

void CRecordWriter::Start() {
    if (!m_thread.joinable())
        m_thread = std::thread(Write, m_shared, m_makeStore, m_path, m_session);
}

CRecordWriter::~CRecordWriter() {
    if (!m_thread.joinable())
        return;
    bool ended = false;
    if (std::unique_lock lock(m_shared->mutex, kPatience); lock) {
        m_shared->isEnding = true;
        m_shared->wake.notify_all();
        ended = m_shared->advance.wait_for(lock, kEndPatience, [this] { return m_shared->hasEnded; });
    }
    TellTrouble();
    if (ended) {
        m_thread.join();
        return;
    }
    m_thread.detach();
    m_complain(QStringLiteral("%1: the disk takes no more; the program ends without its last entries").arg(Name()));
}

void CRecordWriter::Append(RecordRow row, When when) {
    std::unique_lock lock(m_shared->mutex, 10ms);
    if (!lock || m_shared->queue.size() >= kLongestQueue)
        return m_shared->Lose(1);
    m_shared->queue.push_back(std::move(row));
    ++m_shared->appended;
    m_shared->isUrgent = m_shared->isUrgent || when == When::Next;
    m_shared->wake.notify_all();
}

bool CRecordWriter::Wait(bool inHurry) {
    Start();
    bool isDone = false;
    {
        std::unique_lock lock(m_shared->mutex, 10ms);
        const auto done = [this, end = m_shared->appended] { return m_shared->done >= end; };
        if (lock) {
            m_shared->isUrgent = true;
            m_shared->wake.notify_all();
            isDone = m_isLate ? done() : m_shared->advance.wait_for(lock, inHurry ? kPatience : kEndPatience, done);
        }
    }
    TellTrouble();
    m_isLate = !isDone;
    if (m_isLate && !std::exchange(m_hasToldLate, true))
        m_complain(QStringLiteral("%1: the disk is slow; the run does not wait for it").arg(Name()));
    return isDone;
}

bool CRecordWriter::HasGaps() const {
    return m_shared->hasGaps;
}

void CRecordWriter::TellTrouble() {
    QString trouble;
    if (std::unique_lock lock(m_shared->mutex, 10ms); lock)
        trouble = m_shared->trouble;
    if (!trouble.isEmpty() && !std::exchange(m_hasTold, true))
        m_complain(
            QStringLiteral("%1: cannot be written: %2; the run goes on, the record has a gap").arg(Name(), trouble));
}

/// What waits, as soon as somebody is in a hurry or it has waited for a second; nothing at the end.
std::vector<RecordRow> CRecordWriter::Shared::TakeRows() {
    std::unique_lock lock(mutex);
    wake.wait(lock, [this] { return !queue.empty() || isEnding; });
    wake.wait_for(lock, kTogether, [this] { return IsNext(); });
    isUrgent = false;
    return std::exchange(queue, {});
}

/// `store` is null for a record that could not be opened.
void CRecordWriter::Shared::WriteRows(CRecordStore* store, std::vector<RecordRow> rows) {
    const auto count = qint64(rows.size());
    const qint64 missing = lost.exchange(0);
    if (missing > 0)
        rows.push_back({RecordTable::Gap,
                        {QDateTime::currentDateTime().toString(Qt::ISODateWithMs), missing,
                         trouble.isEmpty() ? QStringLiteral("too much at once") : trouble}});
    QString error;
    const bool written = store && store->Append(rows, error);
    if (!written)
        Lose(count + missing);
    const std::unique_lock lock(mutex);
    if (!written)
        trouble = store ? error : *opened;
    done += quint64(count);
    advance.notify_all();
}

void CRecordWriter::Write(const std::shared_ptr<Shared>& shared, const RecordStoreMaker& makeStore, const QString& path,
                          const RecordSession& session) {
    {
        QString error;
        std::unique_ptr<CRecordStore> store = makeStore(error);
        if (store && !store->Open(path, session, error))
            store.reset();
        {
            const std::unique_lock lock(shared->mutex);
            shared->opened = error;
            shared->advance.notify_all();
        }
        while (true) {
            std::vector<RecordRow> rows = shared->TakeRows();
            const bool isLast = rows.empty();
            if (!isLast || shared->lost > 0)
                shared->WriteRows(store.get(), std::move(rows));
            if (isLast)
                break;
        }
    }
    const std::unique_lock lock(shared->mutex);
    shared->hasEnded = true;
    shared->advance.notify_all();
}

} // namespace krt550
