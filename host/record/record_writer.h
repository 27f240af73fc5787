#pragma once

#include "host/record/record_store.h"

#include <QString>

#include <functional>
#include <memory>
#include <thread>

namespace krt550 {

/// Appends rows to a record from a thread of its own, so that what becomes of the disk never stands between the wizard
/// and the drive. All operations belong to the thread of the user interface; what they say is said there too.
///
/// A row that cannot be written is counted, told of once, and leaves a mark in the record as soon as that can be
/// written again. A disk that lets somebody wait for half a second is told of once; until it has caught up nobody waits
/// for it.
class CRecordWriter {
public:
    /// `complain` gets lines for the person at the terminal. `makeStore` is called in the thread that writes.
    CRecordWriter(RecordStoreMaker makeStore, std::function<void(const QString&)> complain);
    /// Writes what is left, for at most 5 s.
    ~CRecordWriter();
    CRecordWriter(const CRecordWriter&) = delete;
    CRecordWriter& operator=(const CRecordWriter&) = delete;

    /// Takes a record for a session (see CRecordStore). False with `error` when it cannot be opened. One whose head
    /// says that all is well, and a new one, is opened when it is started.
    bool Open(const QString& path, const RecordSession& session, QString& error);

    /// Opens the record; does nothing the second time. When it cannot be opened all the same, everything is missing.
    void Start();

    enum class When {
        Soon, ///< within a second, many together: samples
        Next  ///< as soon as the disk can
    };
    /// Has a row written; never waits.
    void Append(RecordRow row, When when = When::Next);
    /// Waits until everything that was appended is on the disk, but not longer than half a second; with nothing in a
    /// hurry 5 s. False when it is not.
    bool Wait(bool inHurry = true);

    /// Something is missing in the record.
    bool HasGaps() const;
    /// Says so, once; whoever waits is told, too.
    void TellTrouble();

private:
    struct Shared;

    static void Write(const std::shared_ptr<Shared>& shared, const RecordStoreMaker& makeStore, const QString& path,
                      const RecordSession& session);

    QString Name() const { return QLatin1String("record ") + m_path; }

    RecordStoreMaker m_makeStore;
    std::function<void(const QString&)> m_complain;
    QString m_path;
    RecordSession m_session;
    std::shared_ptr<Shared> m_shared; ///< outlived by a thread that hangs in the disk
    std::thread m_thread;
    bool m_isLate = false; ///< somebody has waited in vain, and the disk has not caught up since
    bool m_hasTold = false;
    bool m_hasToldLate = false;
};

} // namespace krt550
