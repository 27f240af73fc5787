#include "drive/drive_name.h"

namespace krt550 {

std::optional<DriveName> ParseDriveName(const QString& text, QString& error) {
    DriveName name;
    const QStringList parts = text.split(QLatin1Char(','));
    const qsizetype colon = parts.first().indexOf(QLatin1Char(':'));
    name.kind = parts.first().left(colon);
    if (colon >= 0)
        name.motor = parts.first().mid(colon + 1);
    if (name.kind.isEmpty() || (colon >= 0 && name.motor.isEmpty())) {
        error = QStringLiteral("\"%1\" does not name a drive").arg(text);
        return std::nullopt;
    }
    for (qsizetype i = 1; i < parts.size(); ++i) {
        const qsizetype equals = parts[i].indexOf(QLatin1Char('='));
        const QString option = parts[i].left(equals);
        const QString value = parts[i].mid(equals + 1);
        if (equals <= 0 || value.isEmpty()) {
            error = QStringLiteral("drive \"%1\": \"%2\" is not an option=value").arg(text, parts[i]);
            return std::nullopt;
        }
        if (option == QLatin1String("fault"))
            name.faults.append(value);
        else
            name.options.append({option, value});
    }
    return name;
}

} // namespace krt550
