#pragma once

#include <QGuiApplication>

namespace krt550 {

/// Shows the wait cursor for the scope's lifetime.
class CWaitCursor {
public:
    CWaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~CWaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
};

/// Shows the arrow over a wait cursor for the scope's lifetime: somebody is asked something in between.
class CArrowCursor {
public:
    CArrowCursor() : m_needed(QGuiApplication::overrideCursor() != nullptr) {
        if (m_needed)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~CArrowCursor() {
        if (m_needed)
            QGuiApplication::restoreOverrideCursor();
    }
    CArrowCursor(const CArrowCursor&) = delete;
    CArrowCursor& operator=(const CArrowCursor&) = delete;

private:
    bool m_needed;
};

} // namespace krt550
