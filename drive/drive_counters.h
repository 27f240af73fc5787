#pragma once

#include <QMap>

namespace krt550 {

/// What a drive was told, refused commands included; what never reached it does not count.
struct DriveCounters {
    int motorStarts = 0;
    int motorStops = 0;
    int contactorCloses = 0;
    int contactorOpens = 0;
    int localTakes = 0;
    int localReleases = 0;
    int resets = 0;
    int references = 0;
    int faultReads = 0;
    QMap<quint16, int> reads;  ///< by register
    QMap<quint16, int> writes; ///< by register
};

} // namespace krt550
