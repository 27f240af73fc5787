#pragma once

#include "hostlib/text_files/text_table.h"

#include <QString>

#include <memory>

namespace krt550 {

/// What the wizard's text file says of parameters: tool tips (TOOLTIP), texts of values (VAN), names of groups (GROUP).
class CParameterTexts {
public:
    /// Returns why the file cannot be read, or an empty text.
    QString Read(const QString& path);

    QString GetToolTip(quint16 reg) const;
    /// "Group 43" when it has no name.
    QString GetGroupName(int group) const;
    /// Texts of a register's values in the order of drop-down lists; empty when the file leaves them to the drive's
    /// description.
    std::vector<std::pair<quint16, QString>> GetValueTexts(quint16 reg) const;

private:
    struct Tables {
        CTextArena arena;
        CTextTable toolTips{arena};
        CTextTable groups{arena};
        CValueTextTable values{arena};
    };

    void ReadLine(std::string_view line);

    std::unique_ptr<Tables> m_tables = std::make_unique<Tables>();
};

} // namespace krt550
