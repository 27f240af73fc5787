#pragma once

#include "wizard/params/text_source.h"

class QWidget;

namespace krt550 {

class CParameter;
class CWindow;

/// The cyclic refresh of the values shown in the window in front, driven by a timer of that window.

/// Adds (parameter, control id) to the module-wide update list unless that pair is there. Does nothing for null.
void RegisterForUpdate(CParameter* parameter, const QWidget* control);

/// Takes the pair off the list: the control is to show something else, or nothing.
void UnregisterForUpdate(const CParameter* parameter, const QWidget* control);

void ClearUpdateList();

/// Starts the window's timer with id = key when the wizard text file gives a period > 0 for the key.
/// Returns the timer's handle, 0 when none was started.
int StartParameterUpdate(CWindow& window, int key);

/// Kills the timer and sets the handle to 0; says so when killing failed. Does nothing for handle 0.
void StopParameterUpdate(CWindow& window, int& timerHandle);

/// Stops a timer whose update failed and says so; once, so nothing for handle 0.
void StopFailedUpdate(CWindow& window, int& timerHandle);

/// One pass: re-reads every listed parameter whose control the window has, and shows it, except in the control that has
/// the focus and in rows that are changed and not written. The first failed read stops the timer and is reported.
void UpdateParameters(CWindow& window, int& timerHandle, TextSource source = TextSource::WizardFile);
/// The same for a window inside another one, which has the timer.
void UpdateParameters(CWindow& window, CWindow& timerOwner, int& timerHandle,
                      TextSource source = TextSource::WizardFile);

} // namespace krt550
