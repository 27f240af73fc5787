#include "host/record/record_schema.h"

namespace krt550 {
namespace {

struct TableDef {
    const char* name;
    const char* columns; ///< as CREATE TABLE has them, after the session
    int count;           ///< of columns that a row brings, after the session
    const char* constraint;
};

/// In the order of RecordTable.
constexpr TableDef kTables[] = {
    {"parameter",
     "register INTEGER NOT NULL, name TEXT NOT NULL, unit TEXT NOT NULL, data_type INTEGER NOT NULL, "
     "type INTEGER NOT NULL, decimals INTEGER NOT NULL, minimum REAL NOT NULL, maximum REAL NOT NULL, "
     "default_value REAL NOT NULL, read_only INTEGER NOT NULL",
     10, "PRIMARY KEY (session, register)"},
    {"value_text", "register INTEGER NOT NULL, word INTEGER NOT NULL, text TEXT NOT NULL", 3,
     "PRIMARY KEY (session, register, word)"},
    {"value", "moment TEXT NOT NULL, register INTEGER NOT NULL, t INTEGER NOT NULL, word INTEGER NOT NULL", 4,
     "PRIMARY KEY (session, moment, register)"},
    {"event",
     "n INTEGER NOT NULL, t INTEGER NOT NULL, kind TEXT NOT NULL, register INTEGER, old_word INTEGER, "
     "new_word INTEGER, text TEXT, detail TEXT, data BLOB",
     9, "PRIMARY KEY (session, n)"},
    {"outcome", "n INTEGER NOT NULL, t INTEGER NOT NULL, ok INTEGER, text TEXT", 4, "PRIMARY KEY (session, n)"},
    {"sample",
     "run INTEGER NOT NULL, t INTEGER NOT NULL, speed REAL, reference REAL, armature_current REAL, "
     "field_current REAL, progress REAL",
     7, nullptr},
    {"gap", "noted TEXT NOT NULL, entries INTEGER NOT NULL, reason TEXT NOT NULL", 3, nullptr},
};

const TableDef& DefOf(RecordTable table) {
    return kTables[static_cast<std::size_t>(table)];
}

/// A record is appended to and nothing else: the file itself refuses the rest.
QStringList KeptAsItIs(const QString& table) {
    QStringList triggers;
    for (const char* change : {"UPDATE", "DELETE"})
        triggers += QStringLiteral("CREATE TRIGGER no_%1_of_%2 BEFORE %3 ON %2 BEGIN "
                                   "SELECT RAISE(ABORT, 'a record is only appended to'); END")
                        .arg(QString::fromLatin1(change).toLower(), table, QLatin1String(change));
    return triggers;
}

/// A raw word as the number that people read.
QString Shown(const char* word) {
    return QStringLiteral("CASE WHEN p.data_type = 2 AND %1 > 32767 THEN %1 - 65536 ELSE %1 END / CASE p.decimals "
                          "WHEN 0 THEN 1 WHEN 1 THEN 10.0 WHEN 2 THEN 100.0 WHEN 3 THEN 1000.0 ELSE 10000.0 END")
        .arg(QLatin1String(word));
}

QString Text(const char* word) {
    return QStringLiteral("COALESCE((SELECT v.text FROM value_text v WHERE v.session = e.session AND "
                          "v.register = e.register AND v.word = %1), %2)")
        .arg(QLatin1String(word), Shown(word));
}

/// For people with sqlite3 at hand: everything that happened, names, values and outcomes beside it.
QString StoryView() {
    return QStringLiteral("CREATE VIEW story AS SELECT e.session, e.n, e.t, e.kind, e.register, p.name, %1 AS old, "
                          "%2 AS new, p.unit, e.text, e.detail, o.ok, o.text AS outcome FROM event e "
                          "LEFT JOIN parameter p ON p.session = e.session AND p.register = e.register "
                          "LEFT JOIN outcome o ON o.session = e.session AND o.n = e.n ORDER BY e.session, e.n")
        .arg(Text("e.old_word"), Text("e.new_word"));
}

} // namespace

QStringList RecordSchema() {
    QStringList statements{QStringLiteral("CREATE TABLE session (id INTEGER PRIMARY KEY, started TEXT NOT NULL, "
                                          "drive TEXT NOT NULL, program TEXT NOT NULL)")};
    statements += KeptAsItIs(QStringLiteral("session"));
    for (const TableDef& table : kTables) {
        const QString name = QLatin1String(table.name);
        const QString constraint = table.constraint ? QLatin1String(", ") + QLatin1String(table.constraint) : QString();
        statements += QStringLiteral("CREATE TABLE %1 (session INTEGER NOT NULL REFERENCES session (id), %2%3)%4")
                          .arg(name, QLatin1String(table.columns), constraint,
                               QLatin1String(table.constraint ? " WITHOUT ROWID" : ""));
        statements += KeptAsItIs(name);
    }
    statements += StoryView();
    statements += QStringLiteral("PRAGMA application_id = %1").arg(kRecordApplicationId);
    statements += QStringLiteral("PRAGMA user_version = %1").arg(kRecordVersion);
    return statements;
}

QString InsertStatement(RecordTable table) {
    const TableDef& def = DefOf(table);
    return QStringLiteral("INSERT INTO %1 VALUES (?%2)")
        .arg(QLatin1String(def.name), QString::fromLatin1(", ?").repeated(def.count));
}

} // namespace krt550
