#pragma once

#include "wizard/params/text_source.h"
#include "wizard/platform/row_groups.h"

#include <QString>

#include <functional>

class QWidget;

namespace krt550 {

class CParameter;
class CParameterGroup;
class CWindow;

/// One parameter row of a window: its parameter, its controls, and whether the user has changed it. What the program
/// shows in the controls never marks the row; what a person types does, and a choice that differs from the one shown.
class CRow {
public:
    /// Sets the window's handlers for the row's controls. `window` and `definition` outlive the row.
    CRow(CWindow& window, const RowDef& definition, TextSource source);
    CRow(const CRow&) = delete;
    CRow& operator=(const CRow&) = delete;

    const RowDef& GetDefinition() const { return m_definition; }
    quint16 GetRegister() const { return m_register; }
    /// Gives the row another register before it is bound again; with 0 it stays empty and disabled.
    void SetRegister(quint16 reg);
    /// Shown behind the register in place of the parameter's name, from the next binding on, also when the drive lacks
    /// the parameter; empty: the name.
    void SetCaption(const QString& caption) { m_caption = caption; }
    /// Called after the user has changed the row, and after a choice that takes the change back.
    void SetChangeHandler(std::function<void()> handler) { m_onChange = std::move(handler); }

    /// Null until bound and when the drive lacks it.
    CParameter* GetParameter() const { return m_parameter; }
    /// The control that shows the value; of an edit and a list on top of each other the one in use.
    QWidget* GetValueControl() const;
    int GetLabelId() const { return m_ids.label; }

    /// Finds the parameter and fills the controls. A parameter that the drive lacks adds a line to `errors` and is no
    /// failure; false when reading failed (shown): the row shows no value then.
    bool Bind(CParameterGroup* root, QString& errors);
    /// Without a drive: no parameter, nothing shown, nothing to type into.
    void Unbind();
    /// Shows nothing and takes nothing until it is bound again: the parameter means nothing at present.
    void Clear();
    /// Writes what the user changed, or with `force` whatever stands there, and reads it back. False when something was
    /// refused (shown): the row stays changed.
    bool Write(bool force = false);
    /// Shows what the drive has in place of what was typed. False when reading failed (shown): nothing is changed then.
    bool Reread();
    /// Gives the drive the word back that it held before a Write, without a word when that fails; what the row shows
    /// stays, as a change that is not written. For a bound row.
    void TakeBack(quint16 word);
    /// Puts a value into the row as if the user had: marked, not written.
    void Enter(const QString& text);

    bool IsChanged() const;
    /// Whether the drive has told its value.
    bool IsRead() const { return m_parameter && m_read; }
    void Unmark();
    /// Shows or hides the whole row.
    void Show(bool show);

private:
    bool BindControls(CParameterGroup* root, QString& errors);
    void Empty();
    void ShowLabel();
    void ShowOrHide();
    bool IsListInUse() const;
    QWidget* Control(int id) const;
    void Edited();
    void Selected();
    void Changed();
    void TakenBack();
    void Validate() const;

    CWindow& m_window;
    const RowDef& m_definition;
    RowIds m_ids;
    TextSource m_source;
    quint16 m_register;
    QString m_caption;
    CParameter* m_parameter = nullptr;
    QString m_former; ///< what a list showed before the user changed it
    bool m_read = false;
    bool m_showing = false; ///< the program writes into the controls
    bool m_shown;
    std::function<void()> m_onChange;
};

} // namespace krt550
