#pragma once

namespace krt550 {

/// Controls of a row whose parameter points to another parameter, which is shown behind it.
enum PointerControl : int {
    kPointerLabel,
    kPointerIndex,  ///< edit
    kPointerChoice, ///< drop-down, on the edit's spot
    kPointerValue,  ///< of what it points to
    kPointerUnit    ///< of what it points to
};
/// Id of a control of the window's pointer row `number` (1 to 12).
constexpr int PointerId(int number, PointerControl control) {
    return 61600 + 10 * number + control;
}

inline constexpr int kIdPointerHeading = 61601; ///< "Index", above the edits
inline constexpr int kIdPointerView = 61602;    ///< "Advanced" or "Basic"

} // namespace krt550
