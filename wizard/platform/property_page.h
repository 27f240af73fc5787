#pragma once

#include "wizard/platform/window.h"

namespace krt550 {

class CPropertySheet;

/// A page of a property sheet. Its window is created on the first activation and kept.
class CPropertyPage : public CWindow {
    Q_OBJECT

public:
    explicit CPropertyPage(int layoutNumber);

    /// Text of the page's tab; the layout's caption where none was set.
    QString GetTabText() const;
    void SetTabText(const QString& text) { m_tabText = text; }

protected:
    friend class CPropertySheet;

    /// Once, when the window has its controls.
    virtual bool OnInitDialog() { return true; }
    /// The page comes to the front; false keeps it from being shown.
    virtual bool OnSetActive() { return true; }
    /// The page is shown.
    virtual void OnShown() {}
    /// The page is about to leave the front; false keeps it there.
    virtual bool OnKillActive() { return true; }
    /// The window goes away while the object still lives.
    virtual void OnDestroy() {}

private:
    QString m_tabText;
};

} // namespace krt550
