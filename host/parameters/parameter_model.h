#pragma once

#include "host/parameters/parameter_row.h"

#include <QAbstractItemModel>

#include <functional>
#include <vector>

namespace krt550 {

class CParameterTexts;

enum class ParameterColumn : int { Register, Name, Value, Unit, Minimum, Maximum, Default };
inline constexpr int kParameterColumns = 7;

/// All parameters of a drive, sorted by register: below their groups, or as one table. Knows values, but no drive:
/// whoever reads hands them in, and what is edited goes to `onWrite`.
class CParameterModel : public QAbstractItemModel {
public:
    /// Takes the place of all there was; no value is known.
    void SetParameters(std::vector<ParameterDescription> parameters, const CParameterTexts& texts);
    void SetGrouped(bool isGrouped);
    bool IsGrouped() const { return m_isGrouped; }

    int GetRowCount() const { return static_cast<int>(m_rows.size()); }
    const ParameterRow& GetRow(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    /// Number of an index's parameter in GetRow, or -1 for a group.
    int RowOf(const QModelIndex& index) const;
    QModelIndex IndexOf(int row, ParameterColumn column) const;
    /// Number of a top-level row's group; -1 when it is none.
    int GroupOf(const QModelIndex& index) const;

    /// The drive has told a value.
    void TakeWord(int row, quint16 word);
    /// It has not; what was known stays, and is no longer fresh.
    void TakeFailure(int row, const QString& reason);
    /// Nobody knows any more whether the values are those of the drive.
    void MakeStale();

    /// Called with an edited value that differs from the known one; false when the drive did not take it.
    std::function<bool(int row, quint16 word)> onWrite;
    /// Whether anything may be edited.
    bool isEditable = false;
    /// What a parameter makes the drive do that is a command and no setting; empty for a setting.
    std::function<QString(const ParameterDescription&)> whatItCommands;
    /// Why nobody may edit a parameter here; empty for one that may be edited.
    QString WhyNotEdited(int row) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& = {}) const override { return kParameterColumns; }
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Of a value, under Qt::EditRole: a raw word.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

private:
    struct Group {
        int number = 0;
        int first = 0; ///< row
        int count = 0;
        QString name;
    };

    void MakeGroups(const CParameterTexts& texts);
    void Changed(int row);
    QVariant ValueData(const ParameterRow& row, int role) const;

    std::vector<ParameterRow> m_rows;
    std::vector<Group> m_groups;
    bool m_isGrouped = true;
};

} // namespace krt550
