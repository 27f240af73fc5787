#pragma once

#include "wizard/params/row_table.h"
#include "wizard/platform/dialog.h"

#include <functional>
#include <vector>

namespace krt550 {

inline constexpr quint16 kSpeedScaling = 229;

/// The settings of the analogue inputs or outputs: rows that follow the drive, Apply, Close and Cancel. The dialog
/// writes in its own Apply and Close only; what was typed is forgotten with Cancel.
class CDialogAnalogSettings : public CDialog {
public:
    /// Below this root (borrowed) the parameters are found; to be given before DoModal. Without one nothing is shown
    /// and nothing can be changed.
    void SetParameterRoot(CParameterGroup* root) { m_root = root; }

protected:
    /// The dialog opens over `owner` (null: in the middle of the screen). `timerKey` is that of its update period.
    CDialogAnalogSettings(const PageRows& rows, int timerKey, const QString& helpTopic, QWidget* owner);

    /// Binds what the dialog shows; false when something could not be read (shown). `errors` as for rows.
    virtual bool Bind(QString& errors) = 0;
    /// Writes what was changed, each attempted; true when all succeeded.
    virtual bool Write() = 0;
    /// Each reads one actual value from the drive, at most, and shows it; false when it could not be read (shown).
    using Steps = std::vector<std::function<bool()>>;
    virtual Steps ActualValues() = 0;
    /// After an Apply.
    virtual void Applied(bool written) = 0;
    /// Without a root.
    virtual void Empty();
    /// Whether the drive has something that the dialog's timer could refresh.
    virtual bool HasActualValues() const = 0;
    /// When it has not.
    virtual void TellNoActualValues() {}
    /// Forgets what was changed.
    virtual void Unmark() { m_rows.Unmark(); }

    /// The actual values, then the rows, which do not show what was changed. A failure stops the timer and is told
    /// once.
    void Refresh();
    /// Reads the display row of a register, if the drive has it, and shows value and unit; false when that failed.
    bool ShowActualValue(quint16 reg);

    bool OnInitDialog() override;
    void OnDestroy() override;
    void OnTimer(int id) override;

    CRowTable& GetRows() { return m_rows; }
    CParameterGroup* GetRoot() const { return m_root; }

private:
    void Apply();
    void Close();

    CRowTable m_rows;
    CParameterGroup* m_root = nullptr;
    int m_timerKey;
    int m_updateTimer = 0;
    bool m_refreshing = false;
};

} // namespace krt550
