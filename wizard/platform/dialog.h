#pragma once

#include "wizard/platform/window.h"

#include <memory>

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

protected:
    virtual bool OnInitDialog() { return true; }
    /// Close button, Escape and control 2.
    virtual void OnCancel() { EndDialog(kCancel); }
    /// The window goes away; the object still lives.
    virtual void OnDestroy() {}

private:
    std::unique_ptr<CModalFrame> m_frame;
    bool m_ended = false;
};

} // namespace krt550
