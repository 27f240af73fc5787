#pragma once

#include <QPushButton>

namespace krt550 {

/// The one thing in the window that is red, so that it is found without reading. It acts when it goes down.
class CStopButton : public QPushButton {
public:
    explicit CStopButton(QWidget* parent = nullptr) : QPushButton(QStringLiteral("Stop"), parent) {
        setStyleSheet(QStringLiteral("QPushButton { background-color: #b71c1c; color: white; font-weight: bold;"
                                     " padding: 0.3em 1.5em; border: 2px solid #7f0000; border-radius: 4px; }"
                                     "QPushButton:focus { border-color: white; }"
                                     "QPushButton:pressed { background-color: #7f0000; }"
                                     "QPushButton:disabled { background-color: palette(button);"
                                     " color: palette(mid); border-color: palette(mid); }"));
        setToolTip(QStringLiteral("Stops the motor (Esc)"));
        setAccessibleName(QStringLiteral("Stop the motor"));
        setAutoDefault(false);
    }
};

} // namespace krt550
