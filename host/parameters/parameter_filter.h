#pragma once

#include <QByteArray>
#include <QSortFilterProxyModel>

#include <vector>

namespace krt550 {

class CParameterModel;
struct ParameterRow;

/// Which parameters are shown, and in which order. All conditions hold together; a group is shown when one of its
/// parameters is.
class CParameterFilter : public QSortFilterProxyModel {
public:
    struct Conditions {
        /// Words that are all to be found, in any order and letter case: a number ("9906", "99.06", "43") at the begin
        /// of the register or in the name, anything else in the name, the texts of the values or the tool tip.
        QString search;
        bool changedFromDefault = false;
        bool changedSinceConnect = false;
        bool readOnlyHidden = false;

        bool operator==(const Conditions&) const = default;
    };

    /// The model is borrowed.
    explicit CParameterFilter(CParameterModel& model);

    void SetConditions(const Conditions& conditions);
    const Conditions& GetConditions() const { return m_conditions; }
    /// Whether anything is left out because of what somebody looks for.
    bool IsSearching() const;
    /// Shown as groups or as one table.
    void SetGrouped(bool isGrouped);

    int CountShown() const;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
    /// Number of a parameter in the model, or -1 for a group.
    int RowOf(const QModelIndex& index) const;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    struct Word {
        QByteArray text; ///< in small letters
        bool isNumber = false;
    };

    bool Accepts(const ParameterRow& row) const;
    static bool Contains(const ParameterRow& row, const Word& word);

    CParameterModel& m_model;
    Conditions m_conditions;
    std::vector<Word> m_words; ///< of the search
};

} // namespace krt550
