#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

#include <QByteArray>

#include <optional>

namespace krt550 {

/// A parameter and what is known of its value in the drive.
struct ParameterRow {
    ParameterDescription description;
    QString toolTip;
    QByteArray searchText; ///< name, value texts and tool tip in small letters
    quint16 defaultWord = 0;
    std::optional<quint16> word;      ///< nothing until it has been read once
    std::optional<quint16> connected; ///< as it was when the drive was connected
    QString failure;                  ///< why it could not be read when that was last tried
    bool isFresh = false;             ///< nobody else may have changed it since, as far as is known

    /// What the drive only shows has no default that anybody would have set.
    bool DiffersFromDefault() const { return word && !description.readOnly && *word != defaultWord; }
    bool DiffersFromConnected() const { return word && connected && *word != *connected; }
};

/// Text of a word: of a bit word "0031h", of any other what is shown everywhere.
QString CellText(const ParameterDescription& parameter, quint16 word);
/// Limits, in shown units; empty where none say anything: value lists, bit words, and signals without limits.
QString MinimumText(const ParameterDescription& parameter);
QString MaximumText(const ParameterDescription& parameter);
/// Empty for what the drive only shows.
QString DefaultText(const ParameterRow& row);
/// What there is to say of a row: its tool tip, default, value when connected, why it could not be read. Rich text.
QString ToolTipText(const ParameterRow& row);

/// A row without a value, with what searches need.
ParameterRow MakeRow(ParameterDescription description, QString toolTip);

} // namespace krt550
