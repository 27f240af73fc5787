#include "host/trends/trend_export.h"

#include "host/trends/trend_history.h"

#include <QDateTime>
#include <QPixmap>
#include <QSaveFile>

#include "host/trends/plot.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace krt550 {
namespace {

QString WriteFile(const QString& path, const std::function<bool(QSaveFile&)>& write) {
    QSaveFile file(path);
    // Where a file may be written but nothing made beside it.
    file.setDirectWriteFallback(true);
    if (file.open(QIODevice::WriteOnly) && write(file) && file.commit())
        return {};
    return QStringLiteral("Cannot write %1: %2").arg(path, file.errorString());
}

QString Field(QString text) {
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"')))
        return text;
    return QLatin1Char('"') + text.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

QString TimeText(double seconds) {
    return QDateTime::fromMSecsSinceEpoch(std::llround(seconds * 1000))
        .toString(QStringLiteral("yyyy-MM-dd'T'HH:mm:ss.zzz"));
}

/// The samples of one signal that are still to be written.
struct Rest {
    TrendCurve::const_iterator next;
    TrendCurve::const_iterator end;
    int decimals;

    bool IsAt(double time) const { return next != end && next->key == time; }
};

/// Takes the sample of that time, if there is one.
QByteArray TakeField(Rest& rest, double time) {
    if (!rest.IsAt(time))
        return {};
    const double value = (rest.next++)->value;
    return std::isnan(value) ? QByteArray() : QByteArray::number(value, 'f', rest.decimals);
}

bool WriteTable(QIODevice& file, const CTrendHistory& history, double from, double to) {
    QString header = QStringLiteral("Time,Seconds");
    std::vector<Rest> rests;
    for (const TrendSignal& signal : history.Signals()) {
        header += QLatin1Char(',') + Field(signal.Title());
        rests.push_back(
            {signal.curve->findBegin(from, false), signal.curve->findEnd(to, false), signal.parameter.decimals});
    }
    bool isGood = file.write(header.toUtf8() + '\n') > 0;
    std::optional<double> first;
    while (isGood) {
        std::optional<double> time;
        for (const Rest& rest : rests)
            if (rest.next != rest.end)
                time = std::min(time.value_or(rest.next->key), rest.next->key);
        if (!time)
            break;
        first = first.value_or(*time);
        QByteArray line = TimeText(*time).toLatin1() + ',' + QByteArray::number(*time - *first, 'f', 3);
        for (Rest& rest : rests)
            line += ',' + TakeField(rest, *time);
        isGood = file.write(line + '\n') > 0;
    }
    return isGood;
}

} // namespace

QString WriteTrendTable(const CTrendHistory& history, double from, double to, const QString& path) {
    return WriteFile(path, [&](QSaveFile& file) { return WriteTable(file, history, from, to); });
}

QString WriteTrendPicture(const QPixmap& picture, const QString& path) {
    return WriteFile(path, [&](QSaveFile& file) { return picture.save(&file, "PNG"); });
}

} // namespace krt550
