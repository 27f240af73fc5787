#pragma once

#include "hostlib/tolvbo32/drive_description.h"

namespace krt550 {

/// The parameters of the drive as they are shipped, without the ones in `missing`.
inline std::vector<ParameterDescription> ShippedParameters(const std::set<quint16>& missing = {}) {
    QStringList errors;
    auto parameters = ReadDriveDescriptionFile(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.parameters"), errors);
    EXPECT_TRUE(parameters) << errors.join(u'\n').toStdString();
    if (!parameters)
        return {};
    std::erase_if(*parameters, [&](const ParameterDescription& parameter) { return missing.contains(parameter.reg); });
    return *std::move(parameters);
}

} // namespace krt550
