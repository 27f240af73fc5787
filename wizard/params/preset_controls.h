#pragma once

#include <QComboBox>
#include <QLineEdit>

namespace krt550 {

class CParameter;

/// What a preset control asks of the window that it stands in.
class CPresetOwner {
public:
    virtual ~CPresetOwner() = default;
    /// Sets every row of the window to its preset value.
    virtual void SetAllToPresets() = 0;
};

/// What both preset controls hold: the row's parameter (borrowed, may be null) and its preset value (may be empty).
class CPresetHolder {
public:
    void SetPreset(const QString& preset) { m_preset = preset; }
    void SetParameter(CParameter* parameter) { m_parameter = parameter; }
    /// Puts the preset into the control and marks the row changed; nothing is written. Does nothing when the control is
    /// disabled or there is no preset.
    virtual void ChangeToPreset() = 0;

protected:
    ~CPresetHolder() = default;
    /// Opens the popup menu of the presets for `control` and carries the chosen command out.
    void RunMenu(QWidget& control, const QPoint& position);

    QString m_preset;
    CParameter* m_parameter = nullptr;
};

/// Drop-down whose context menu puts the preset value (a number) into it.
class CPresetComboBox : public QComboBox, public CPresetHolder {
    Q_OBJECT

public:
    using QComboBox::QComboBox;
    /// Tells the window of a change, so that the row marks itself, then sets parameter object and selection to the
    /// preset; nothing is written.
    void ChangeToPreset() override;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
};

/// Edit whose context menu puts the preset text into it.
class CPresetEdit : public QLineEdit, public CPresetHolder {
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;
    void ChangeToPreset() override;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
};

} // namespace krt550
