#pragma once

#include "host/parameters/parameter_filter.h"
#include "host/parameters/parameter_model.h"
#include "host/parameters/parameter_refresh.h"
#include "host/parameters/parameter_texts.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QMenu;
class QSettings;

namespace krt550 {

class CParameterView;
class CValueEditor;

/// All parameters of a drive: to be looked at, searched and edited. What is typed is checked as the wizard does, and
/// written with one WriteWord when it differs.
class CParameterPanel : public QWidget {
public:
    /// `textFile`: the wizard's Wzkrt550.txt, for tool tips and texts.
    explicit CParameterPanel(QString textFile, QWidget* parent = nullptr);
    ~CParameterPanel() override;

    /// Borrowed; null: not connected, also before a link ends. Reads everything in the background, one read a turn of
    /// the event loop. The first value of each parameter is what it was when the drive was connected.
    void SetDrive(CParameterLink* link, std::vector<ParameterDescription> parameters);
    /// Parameters that make the drive do something are not written from the list: whoever finds them by a search does
    /// not have the motor in mind. `whatItCommands` says what one does, and nothing of a setting.
    void SetCommands(std::function<QString(const ParameterDescription&)> whatItCommands) {
        m_model.whatItCommands = std::move(whatItCommands);
    }
    /// Somebody else works on the line and on the parameters (the wizard): nothing is read or written here until it
    /// ends, then all is read again.
    void SetShared(bool isShared);
    /// Filters, columns, order and open groups, in the settings' group "parameters".
    void SaveState(QSettings& settings) const;
    void RestoreState(QSettings& settings);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* MakeFilters();
    void MakeColumns();
    void GoToFound();
    void BindKeys();
    void ApplyConditions();
    void ShowCount();
    void ShowState();
    void Tell(const QString& text);
    void Refused(int row);
    bool Write(int row, quint16 word);
    void WasReadBack(int row, quint16 wanted, bool isWritten);
    std::optional<std::vector<int>> GetSeenRows() const;

    QString m_textFile;
    CParameterTexts m_texts;
    QString m_textError;
    CParameterModel m_model;
    CParameterFilter m_filter{m_model};
    CParameterRefresh m_refresh;
    CParameterLink* m_link = nullptr;
    bool m_isShared = false;
    QString m_silence; ///< why the drive does not answer; empty while it does

    CParameterView* m_view;
    CValueEditor* m_editor;
    QLineEdit* m_search;
    QCheckBox* m_fromDefault;
    QCheckBox* m_sinceConnect;
    QCheckBox* m_readOnlyHidden;
    QCheckBox* m_grouped;
    QMenu* m_columns;
    QLabel* m_count;
    QLabel* m_state;   ///< of the link
    QLabel* m_message; ///< what became of the last write
};

} // namespace krt550
