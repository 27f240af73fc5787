#include "host/connector.h"

#include "host/connect_drive.h"
#include "host/part.h"
#include "host/record/record_place.h"

#include <QDateTime>

namespace krt550 {
namespace {

/// Behind the first paint, in the thread of the record.
std::unique_ptr<CRecordStore> MakeStore(QString& error) {
    auto* const make = LoadPart<decltype(krt550_record)>("record", error);
    return std::unique_ptr<CRecordStore>(make ? make() : nullptr);
}

} // namespace

std::unique_ptr<CRecordWriter> OpenRecord(const QString& path, const QString& drive,
                                          const std::function<void(const QString&)>& complain, QString& error) {
    const QDateTime now = QDateTime::currentDateTime();
    QString reason;
    auto record = std::make_unique<CRecordWriter>(MakeStore, complain);
    if (HasPart("record", reason) &&
        record->Open(path,
                     {.drive = drive,
                      .program = VersionText().trimmed(),
                      .started = now.toOffsetFromUtc(now.offsetFromUtc()).toString(Qt::ISODateWithMs)},
                     reason))
        return record;
    error = QStringLiteral("record %1: cannot be written: %2").arg(path, reason);
    return nullptr;
}

std::unique_ptr<CConnectedDrive> CConnector::Connect(const QString& name, QString& error, bool& isWrong) {
    isWrong = true;
    error.clear();
    std::unique_ptr<CConnection> connection = ConnectDrive(name, m_files, m_options.wizardDirectory, error);
    if (!connection)
        return nullptr;
    std::unique_ptr<CRecordWriter> record = RecordOf(name, error);
    if (!error.isEmpty())
        return nullptr;
    isWrong = false;
    if (!connection->Open(error))
        return nullptr;
    return std::make_unique<CConnectedDrive>(std::move(connection), m_log, std::move(record), m_complain);
}

/// A record that was asked for has to be there; the one that is kept anyway holds nobody up.
std::unique_ptr<CRecordWriter> CConnector::RecordOf(const QString& drive, QString& error) {
    const bool asked = !m_options.recordFile.isEmpty();
    if (m_options.recordFile == QLatin1String("none") || (!asked && !m_options.playFile.isEmpty()))
        return nullptr;
    const QString path = asked ? m_options.recordFile : RecordPlace(drive, QDate::currentDate());
    QString complaint;
    auto record = OpenRecord(path, drive, m_complain, complaint);
    if (!record && asked)
        error = complaint;
    else if (!record)
        m_complain(complaint);
    return record;
}

} // namespace krt550
