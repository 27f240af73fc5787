#include "host/report/record_reader.h"

#include "host/record/record_schema.h"

#include <QFileInfo>
#include <QScopeGuard>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>
#include <QVariant>

#include <functional>

namespace krt550 {
namespace {

constexpr auto kConnection = "krt550 report";

using Row = std::function<QVariant(int column)>;

class CReader {
public:
    CReader(QSqlDatabase database, QString& error) : m_database(std::move(database)), m_error(error) {}

    bool IsRecord();
    std::vector<RecordedSession> ReadSessions();

private:
    int Number(const char* pragma);
    void ForEach(const QString& select, const std::function<void(const Row&)>& take);
    void ReadParameters(RecordedSession& session);
    void ReadValues(RecordedSession& session);
    void ReadEvents(RecordedSession& session);
    void ReadTraces(RecordedSession& session);

    QSqlDatabase m_database;
    QString& m_error;
};

QString Of(const char* select, const RecordedSession& session) {
    return QString::fromLatin1(select).arg(session.id);
}

std::optional<quint16> Word(const QVariant& value) {
    return value.isNull() ? std::nullopt : std::optional(quint16(value.toUInt()));
}

int CReader::Number(const char* pragma) {
    QSqlQuery query(m_database);
    return query.exec(QLatin1String(pragma)) && query.next() ? query.value(0).toInt() : -1;
}

bool CReader::IsRecord() {
    QSqlQuery query(m_database);
    if (!query.exec(QStringLiteral("PRAGMA user_version")))
        m_error = query.lastError().databaseText();
    else if (Number("PRAGMA application_id") != kRecordApplicationId)
        m_error = QStringLiteral("it is no record");
    else if (const int version = Number("PRAGMA user_version"); version > kRecordVersion)
        m_error = QStringLiteral("it is a record of version %1; this program knows version %2")
                      .arg(version)
                      .arg(kRecordVersion);
    return m_error.isEmpty();
}

void CReader::ForEach(const QString& select, const std::function<void(const Row&)>& take) {
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.exec(select)) {
        m_error = query.lastError().databaseText();
        return;
    }
    while (query.next())
        take([&query](int column) { return query.value(column); });
    if (query.lastError().isValid())
        m_error = query.lastError().databaseText();
}

std::vector<RecordedSession> CReader::ReadSessions() {
    std::vector<RecordedSession> sessions;
    ForEach(QStringLiteral("SELECT id, started, drive, program FROM session ORDER BY id"), [&](const Row& row) {
        RecordedSession& session = sessions.emplace_back();
        session.id = row(0).toLongLong();
        session.started = row(1).toString();
        session.drive = row(2).toString();
        session.program = row(3).toString();
    });
    for (RecordedSession& session : sessions) {
        ReadParameters(session);
        ReadValues(session);
        ReadEvents(session);
        ReadTraces(session);
        ForEach(Of("SELECT noted, entries, reason FROM gap WHERE session = %1 ORDER BY rowid", session),
                [&](const Row& row) {
                    session.gaps.push_back({row(0).toString(), row(1).toLongLong(), row(2).toString()});
                });
    }
    return sessions;
}

void CReader::ReadParameters(RecordedSession& session) {
    ForEach(Of("SELECT register, name, unit, data_type, type, decimals, minimum, maximum, default_value, read_only "
               "FROM parameter WHERE session = %1",
               session),
            [&](const Row& row) {
                const auto reg = quint16(row(0).toUInt());
                session.parameters[reg] = {.reg = reg,
                                           .name = row(1).toString(),
                                           .unit = row(2).toString(),
                                           .dataType = DataType(row(3).toInt()),
                                           .type = ParameterType(row(4).toInt()),
                                           .decimals = row(5).toInt(),
                                           .minimum = row(6).toDouble(),
                                           .maximum = row(7).toDouble(),
                                           .defaultValue = row(8).toDouble(),
                                           .readOnly = row(9).toBool(),
                                           .values = {}};
            });
    ForEach(Of("SELECT register, word, text FROM value_text WHERE session = %1 ORDER BY register, word", session),
            [&](const Row& row) {
                session.parameters[quint16(row(0).toUInt())].values.emplace_back(quint16(row(1).toUInt()),
                                                                                 row(2).toString());
            });
}

void CReader::ReadValues(RecordedSession& session) {
    ForEach(Of("SELECT moment, register, word FROM value WHERE session = %1", session), [&](const Row& row) {
        RegisterWords& words = row(0).toString() == QLatin1String("as-left") ? session.asLeft : session.asFound;
        words[quint16(row(1).toUInt())] = quint16(row(2).toUInt());
    });
}

void CReader::ReadEvents(RecordedSession& session) {
    ForEach(Of("SELECT e.n, e.t, e.kind, e.register, e.old_word, e.new_word, e.text, e.detail, e.data, o.n, o.t, o.ok, "
               "o.text FROM event e LEFT JOIN outcome o ON o.session = e.session AND o.n = e.n "
               "WHERE e.session = %1 ORDER BY e.n",
               session),
            [&](const Row& row) {
                session.events.push_back({.number = row(0).toLongLong(),
                                          .time = row(1).toLongLong(),
                                          .kind = row(2).toString(),
                                          .reg = quint16(row(3).toUInt()),
                                          .oldWord = Word(row(4)),
                                          .newWord = Word(row(5)),
                                          .text = row(6).toString(),
                                          .detail = row(7).toString(),
                                          .data = row(8).toByteArray(),
                                          .hasOutcome = !row(9).isNull(),
                                          .outcomeTime = row(10).toLongLong(),
                                          .ok = row(11).isNull() ? std::nullopt : std::optional(row(11).toBool()),
                                          .outcome = row(12).toString()});
            });
}

void CReader::ReadTraces(RecordedSession& session) {
    ForEach(Of("SELECT run, t, speed, reference, armature_current, field_current, progress FROM sample "
               "WHERE session = %1 ORDER BY run, t",
               session),
            [&](const Row& row) {
                TracePoint point{.time = row(1).toLongLong(), .values = {}};
                for (int i = 0; i < TraceSignalCount; ++i)
                    if (const QVariant value = row(2 + i); !value.isNull())
                        point.values[std::size_t(i)] = value.toDouble();
                session.traces[row(0).toLongLong()].push_back(point);
            });
}

/// Opens the file for reading. Where nobody may write, what a program that was killed has left beside the file cannot
/// be taken in; the file alone can be read then.
bool OpenForReading(QSqlDatabase& database, const QString& path) {
    const QUrl url = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    for (const char* mode : {"?mode=ro", "?immutable=1"}) {
        database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=5000"));
        database.setDatabaseName(QString::fromLatin1(url.toEncoded()) + QLatin1String(mode));
        if (database.open() && QSqlQuery(database).exec(QStringLiteral("SELECT COUNT(*) FROM sqlite_master")))
            return true;
        database.close();
    }
    return false;
}

} // namespace

std::optional<std::vector<RecordedSession>> ReadRecord(const QString& path, QString& error) {
    std::vector<RecordedSession> sessions;
    QString problem;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QLatin1String(kConnection));
        const auto closing = qScopeGuard([&database] { database.close(); });
        CReader reader(database, problem);
        if (!QFileInfo(path).isFile())
            problem = QStringLiteral("there is no such file");
        else if (!OpenForReading(database, path))
            problem = QStringLiteral("it is no record, or cannot be read");
        else if (reader.IsRecord())
            sessions = reader.ReadSessions();
        if (problem.isEmpty() && sessions.empty())
            problem = QStringLiteral("nothing has been recorded in it");
    }
    QSqlDatabase::removeDatabase(QLatin1String(kConnection));
    if (problem.isEmpty())
        return sessions;
    error = QStringLiteral("record %1: %2").arg(path, problem);
    return std::nullopt;
}

} // namespace krt550
