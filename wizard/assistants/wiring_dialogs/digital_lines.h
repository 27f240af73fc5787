#pragma once

#include <QtGlobal>

class QWidget;

namespace krt550 {

class CWindow;
struct ControlLayout;

/// How the settings of digital inputs and outputs look.

inline constexpr quint16 kInputStates = 805;  ///< bit k - 1: DIk
inline constexpr quint16 kOutputStates = 806; ///< bit k - 1: DOk

/// The control that a light-grey band or a note takes; null for one that the layout makes.
QWidget* MakeDigitalControl(const ControlLayout& control, QWidget* parent);
/// Gives bands and notes their looks and every line its tool tips.
void DressDigitalLines(CWindow& window);

} // namespace krt550
