#pragma once

#include "host/record/record_row.h"

#include <QSqlDatabase>
#include <QSqlQuery>

#include <map>
#include <vector>

namespace krt550 {

/// A record on the disk, opened to append the rows of one session. Belongs to the thread that has made it. What has
/// been appended survives the end of the program and of the machine's power.
class CRecordFile {
public:
    CRecordFile() = default;
    ~CRecordFile();
    CRecordFile(const CRecordFile&) = delete;
    CRecordFile& operator=(const CRecordFile&) = delete;

    /// Opens the file, makes it if there is none, and begins a session. Several sessions, of several programs, may
    /// append to one file. False, and the reason in `error`, when that cannot be or the file is something else.
    bool Open(const QString& path, const RecordSession& session, QString& error);

    /// A file that can be written, and is either empty or made, or says in its first bytes that it is a record that
    /// this program can append to. Costs next to nothing. Only opening it tells for certain, and why not.
    static bool IsPlainlyOurs(const QString& path);

    /// All of the rows, or none of them and the reason in `error`. What could not be opened takes none.
    bool Append(const std::vector<RecordRow>& rows, QString& error);

private:
    bool Begin(const QString& path, const RecordSession& session, QString& error);
    bool Execute(const QString& statement, QString& error);
    int Number(const QString& pragma);
    bool MakeTables(QString& error);
    bool BeginSession(const RecordSession& session, QString& error);
    bool Insert(const RecordRow& row, QString& error);

    QString m_connection;
    QString m_unopened; ///< why
    QSqlDatabase m_database;
    std::map<RecordTable, QSqlQuery> m_inserts;
    qint64 m_session = 0;
};

} // namespace krt550
