#pragma once

#include "wizard/platform/dialog.h"
#include "wizard/wiring/connection_picker.h"

#include <optional>

namespace krt550 {

/// A list of the functions that one input can be connected to, each with a tick. It writes nothing: what was changed is
/// the opener's.
class CDialogConnections : public CDialog {
public:
    /// What was changed, once DoModal has returned kIdCloseDialog.
    ConnectionChange GetChange() const;

protected:
    /// Opens below `opener`. `input` counts from 1, `root` is borrowed and not null. The ticks stand as they will after
    /// `pending` has been applied.
    CDialogConnections(int layoutNumber, QWidget* opener, InputKind kind, int input, CParameterGroup* root,
                       const ConnectionChange& pending);

    bool OnInitDialog() override;

private:
    void FillList();
    void ShowItems();
    void Ticked();

    InputKind m_kind;
    int m_input;
    CParameterGroup* m_root;
    ConnectionChange m_pending;
    std::optional<CConnectionPicker> m_picker;
};

/// "AI Settings": what one analogue input is connected to.
class CDialogAIConnections : public CDialogConnections {
public:
    CDialogAIConnections(QWidget* opener, int input, CParameterGroup* root, const ConnectionChange& pending);
};

} // namespace krt550
