#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

namespace krt550 {

/// A drive as --drive names it: "sim", "sim:S2", "sim:S2,feedback=encoder,fault=missing:3016".
struct DriveName {
    QString kind;                               ///< "sim"
    QString motor;                              ///< what stands after the colon, possibly empty
    QList<std::pair<QString, QString>> options; ///< option=value, in their order, faults apart
    QStringList faults;                         ///< values of the option "fault", in their order
};

/// Takes such a name apart; nothing, and the reason in `error`, when it does not read like one.
std::optional<DriveName> ParseDriveName(const QString& text, QString& error);

} // namespace krt550
