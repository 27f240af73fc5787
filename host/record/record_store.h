#pragma once

#include "host/record/record_row.h"

#include <functional>
#include <memory>
#include <vector>

namespace krt550 {

/// A record on the disk, opened to append the rows of one session. Belongs to the thread that has made it. What has
/// been appended survives the end of the program and of the machine's power.
class CRecordStore {
public:
    virtual ~CRecordStore() = default;

    /// Opens the file, makes it if there is none, and begins a session. Several sessions, of several programs, may
    /// append to one file. False, and the reason in `error`, when that cannot be or the file is something else.
    virtual bool Open(const QString& path, const RecordSession& session, QString& error) = 0;

    /// All of the rows, or none of them and the reason in `error`; to an open record only.
    virtual bool Append(const std::vector<RecordRow>& rows, QString& error) = 0;
};

/// Makes one; null, and the reason in `error`, when that cannot be.
using RecordStoreMaker = std::function<std::unique_ptr<CRecordStore>(QString& error)>;

} // namespace krt550

/// The part "record": a new store, for whoever calls.
extern "C" krt550::CRecordStore* krt550_record();
