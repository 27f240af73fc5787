#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

#include <QWidget>

#include <vector>

class QSettings;

namespace krt550 {

class CParameterLink;

/// The trends as a window sees them that docks them.
class CTrendDoor : public QWidget {
public:
    using QWidget::QWidget;

    /// Borrowed, and still there when another one or null takes its place; null: no drive is connected any more, the
    /// curves stay to be looked at. `parameters` are all of the drive's.
    virtual void SetDrive(CParameterLink* link, std::vector<ParameterDescription> parameters) = 0;
    /// Somebody else works on the line (the wizard): samples are read one register at a time and nothing is announced.
    virtual void SetShared(bool isShared) = 0;

    /// The chosen signals and the window, under trends/.
    virtual void SaveState(QSettings& settings) const = 0;
    /// What is not there, or is no signal or window, stays as it is.
    virtual void RestoreState(QSettings& settings) = 0;
};

} // namespace krt550

/// The part "trends": a new panel, for whoever calls.
extern "C" krt550::CTrendDoor* krt550_trends();
