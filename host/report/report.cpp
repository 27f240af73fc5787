#include "host/report/report.h"

#include "host/report/chart.h"
#include "host/report/html.h"
#include "host/report/pdf.h"
#include "host/report/record_reader.h"

#include <QSaveFile>

namespace krt550 {
namespace {

bool WriteHtml(const Findings& findings, QIODevice& output) {
    const QByteArray html =
        ReportHtml(findings, HtmlFor::Browser, [&](std::size_t run) { return ChartSvg(findings.runs[run]); }).toUtf8();
    return output.write(html) == html.size();
}

} // namespace

bool WriteReport(const QString& record, const QString& output, QString& error) {
    const bool isPdf = output.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
    if (!isPdf && !output.endsWith(QLatin1String(".html"), Qt::CaseInsensitive)) {
        error = QStringLiteral("report %1: its name has to end with .pdf or .html").arg(output);
        return false;
    }
    const auto sessions = ReadRecord(record, error);
    if (!sessions)
        return false;
    const Findings findings = FindOut(*sessions);
    QSaveFile file(output);
    const bool written = file.open(QIODevice::WriteOnly) &&
                         (isPdf ? WritePdf(findings, file) : WriteHtml(findings, file)) && file.commit();
    if (!written)
        error = QStringLiteral("report %1: cannot be written: %2").arg(output, file.errorString());
    return written;
}

} // namespace krt550
