#include "host/record/record_file.h"

#include "host/record/record_schema.h"

#include <QSqlError>
#include <QUuid>

namespace krt550 {
namespace {

/// How long another program's transaction is waited for [ms].
constexpr int kBusyMs = 5000;

} // namespace

CRecordFile::~CRecordFile() {
    m_inserts.clear();
    m_database.close();
    m_database = {};
    if (!m_connection.isEmpty())
        QSqlDatabase::removeDatabase(m_connection);
}

bool CRecordFile::Open(const QString& path, const RecordSession& session, QString& error) {
    m_connection = QUuid::createUuid().toString();
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    m_database.setDatabaseName(path);
    m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(kBusyMs));
    if (!m_database.open()) {
        error = m_database.lastError().databaseText();
        return false;
    }
    // FULL: a transaction is on the disk when it is over, not when the system finds the time.
    return Execute(QStringLiteral("PRAGMA journal_mode = WAL"), error) &&
           Execute(QStringLiteral("PRAGMA synchronous = FULL"), error) && MakeTables(error) &&
           BeginSession(session, error);
}

bool CRecordFile::Execute(const QString& statement, QString& error) {
    QSqlQuery query(m_database);
    if (query.exec(statement))
        return true;
    error = query.lastError().databaseText();
    return false;
}

int CRecordFile::Number(const QString& pragma) {
    QSqlQuery query(m_database);
    return query.exec(pragma) && query.next() ? query.value(0).toInt() : -1;
}

/// In one transaction: another program may open the new file at the same moment.
bool CRecordFile::MakeTables(QString& error) {
    if (!Execute(QStringLiteral("BEGIN IMMEDIATE"), error))
        return false;
    const int application = Number(QStringLiteral("PRAGMA application_id"));
    const int version = Number(QStringLiteral("PRAGMA user_version"));
    const bool isEmpty = Number(QStringLiteral("SELECT COUNT(*) FROM sqlite_master")) == 0;
    if (!isEmpty && application != kRecordApplicationId)
        error = QStringLiteral("it is a database, but no record");
    else if (!isEmpty && version != kRecordVersion)
        error = QStringLiteral("it is a record of version %1; this program writes version %2")
                    .arg(version)
                    .arg(kRecordVersion);
    for (const QString& statement : isEmpty ? RecordSchema() : QStringList())
        if (error.isEmpty())
            Execute(statement, error);
    QString rollback;
    return error.isEmpty() ? Execute(QStringLiteral("COMMIT"), error)
                           : Execute(QStringLiteral("ROLLBACK"), rollback) && false;
}

bool CRecordFile::BeginSession(const RecordSession& session, QString& error) {
    QSqlQuery query(m_database);
    query.prepare(QStringLiteral("INSERT INTO session (started, drive, program) VALUES (?, ?, ?)"));
    for (const QString& value : {session.started, session.drive, session.program})
        query.addBindValue(value);
    if (!query.exec()) {
        error = query.lastError().databaseText();
        return false;
    }
    m_session = query.lastInsertId().toLongLong();
    return true;
}

bool CRecordFile::Append(const std::vector<RecordRow>& rows, QString& error) {
    if (!Execute(QStringLiteral("BEGIN IMMEDIATE"), error))
        return false;
    for (const RecordRow& row : rows)
        if (error.isEmpty())
            Insert(row, error);
    if (error.isEmpty() && Execute(QStringLiteral("COMMIT"), error))
        return true;
    QString rollback;
    Execute(QStringLiteral("ROLLBACK"), rollback);
    return false;
}

bool CRecordFile::Insert(const RecordRow& row, QString& error) {
    auto found = m_inserts.find(row.table);
    if (found == m_inserts.end()) {
        found = m_inserts.emplace(row.table, QSqlQuery(m_database)).first;
        found->second.prepare(InsertStatement(row.table));
    }
    QSqlQuery& query = found->second;
    query.bindValue(0, m_session);
    for (qsizetype i = 0; i < row.values.size(); ++i)
        query.bindValue(int(i) + 1, row.values[i]);
    if (query.exec())
        return true;
    error = query.lastError().databaseText();
    return false;
}

} // namespace krt550
