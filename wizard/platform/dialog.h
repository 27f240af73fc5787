#pragma once

#include "wizard/platform/window.h"

#include <memory>
#include <optional>

namespace krt550 {

class CModalFrame;

/// A modal dialog on a layout. Control 2 (the standard cancel id) closes it.
class CDialog : public CWindow {
    Q_OBJECT

public:
    explicit CDialog(int layoutNumber);
    ~CDialog() override;

    /// Shows the dialog; returns what EndDialog was given, 0 when the layout is missing.
    int DoModal();
    /// Ends the dialog with a result; may be called from any handler.
    void EndDialog(int result);

    static constexpr int kCancel = 2;
    int GetWayOut() const override { return kCancel; }

    /// Where a dialog opens.
    enum class Place { Over, Below };
    /// Has the dialog open with its top left corner at that of `control`, or at its bottom left corner, moved as far as
    /// it takes to be on the control's screen as a whole. `control` is visible; to be called before DoModal.
    void OpenAt(const QWidget& control, Place place);

protected:
    virtual bool OnInitDialog() { return true; }
    /// Close button, Escape and control 2.
    virtual void OnCancel() { EndDialog(kCancel); }
    /// The window goes away; the object still lives.
    virtual void OnDestroy() {}

private:
    void FocusFirstValue();

    std::unique_ptr<CModalFrame> m_frame;
    bool m_ended = false;
    std::optional<QPoint> m_position; ///< of the frame, on the screen
    QRect m_screen;                   ///< that it stays on
};

} // namespace krt550
