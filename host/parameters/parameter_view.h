#pragma once

#include <QTreeView>

#include <functional>
#include <set>
#include <vector>

namespace krt550 {

class CParameterFilter;
class CParameterModel;

/// The list of parameters. Enter, F2 and a double click edit the value of the row, in whatever column; Ctrl+C copies
/// the selected rows as text. Esc is left to whoever listens, unless a value is being edited.
class CParameterView : public QTreeView {
public:
    /// Both borrowed.
    CParameterView(CParameterModel& model, CParameterFilter& filter, QWidget* parent);

    /// Called when somebody wants to edit a parameter that cannot be edited.
    std::function<void(int row)> onRefused;

    /// Numbers in the model of the parameters that somebody sees.
    std::vector<int> GetSeenRows() const;
    /// Texts of the selected rows in their order, a line each, columns separated by tabs.
    QString GetSelectedText() const;

    /// Opens the groups that were open, or all of them while somebody searches: what is found is seen.
    void ShowGroups();
    /// Numbers of the open groups, whether or not they are shown now.
    std::set<int> openGroups;

protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void NoteOpen(const QModelIndex& index, bool isOpen);
    QString RowText(const QModelIndex& index) const;

    CParameterModel& m_model;
    CParameterFilter& m_filter;
    bool m_isShowingGroups = false; ///< the program opens and closes groups
};

} // namespace krt550
