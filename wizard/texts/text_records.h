#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace krt550 {

/// What the queries of the text store answer.

struct ValueText {
    quint16 value = 0;
    QString text;
    bool operator==(const ValueText&) const = default;
};

/// Names of signals and sources: parallel lists in ascending order of the keys. The key of a digital-output source is
/// index * 65536 + bit.
struct IndexList {
    QList<quint32> keys;
    QStringList texts;
};

struct RegisterValue {
    quint16 reg = 0;
    quint16 value = 0;
    bool operator==(const RegisterValue&) const = default;
};

struct SliderValue {
    quint16 index = 0;
    quint16 reg = 0;
    quint16 value = 0;
    bool operator==(const SliderValue&) const = default;
};

struct SpeedResponse {
    int step = 0;
    int minimum = 0;
    int maximum = 0;
    bool operator==(const SpeedResponse&) const = default;
};

struct GainAdjustment {
    quint16 number = 0;
    float factor = 0;
    bool operator==(const GainAdjustment&) const = default;
};

/// A row of the configurable assistant.
struct ConfigurableRow {
    quint16 reg = 0;
    QString preset;
    QString caption;
    QString toolTip;
    QString helpText;
    bool operator==(const ConfigurableRow&) const = default;
};

} // namespace krt550
