#pragma once

#include <QtGlobal>

#include <set>

namespace krt550 {

/// What a supervision does when it finds something; the numbers of the value lists of its parameter.
enum class Reaction : quint16 { None = 0, Trip = 1, Alarm = 2 };

/// What has been found: a trip (0: none) and alarms, by fault codes.
struct Findings {
    quint16 trip = 0;
    std::set<quint16> alarms;

    void Add(quint16 code, Reaction reaction) {
        if (reaction == Reaction::Trip && !trip)
            trip = code;
        if (reaction == Reaction::Alarm)
            alarms.insert(code);
    }
};

} // namespace krt550
