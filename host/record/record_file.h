#pragma once

#include "host/record/record_store.h"

#include <QSqlDatabase>
#include <QSqlQuery>

#include <map>

namespace krt550 {

/// A record as an SQLite file.
class CRecordFile : public CRecordStore {
public:
    CRecordFile() = default;
    ~CRecordFile() override;
    CRecordFile(const CRecordFile&) = delete;
    CRecordFile& operator=(const CRecordFile&) = delete;

    bool Open(const QString& path, const RecordSession& session, QString& error) override;
    bool Append(const std::vector<RecordRow>& rows, QString& error) override;

private:
    bool Execute(const QString& statement, QString& error);
    int Number(const QString& pragma);
    bool MakeTables(QString& error);
    bool BeginSession(const RecordSession& session, QString& error);
    bool Insert(const RecordRow& row, QString& error);

    QString m_connection;
    QSqlDatabase m_database;
    std::map<RecordTable, QSqlQuery> m_inserts;
    qint64 m_session = 0;
};

} // namespace krt550
