#pragma once

#include "wizard/params/text_source.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

namespace krt550 {

class CParameter;
class CWindow;

/// The cyclic refresh of the values shown in the window in front, driven by a timer of that window.

/// Adds (parameter, control id) to the module-wide update list unless that pair is there. Does nothing for null.
void RegisterForUpdate(CParameter* parameter, const QWidget* control);

/// Takes the pair off the list: the control is to show something else, or nothing.
void UnregisterForUpdate(const CParameter* parameter, const QWidget* control);

bool IsRegisteredForUpdate(const CParameter* parameter, const QWidget* control);

/// Empties the list, and ends the pass that is on.
void ClearUpdateList();

/// Starts the window's timer with id = key when the wizard text file gives a period > 0 for the key.
/// Returns the timer's handle, 0 when none was started.
int StartParameterUpdate(CWindow& window, int key);

/// Kills the timer and sets the handle to 0; says so when killing failed. Does nothing for handle 0. A pass of the
/// window ends.
void StopParameterUpdate(CWindow& window, int& timerHandle);

/// Stops a timer whose update failed and says so; once, so nothing for handle 0.
void StopFailedUpdate(CWindow& window, int& timerHandle);

/// What one pass refreshes, in its order.
struct UpdatePlan {
    struct Item {
        CParameter* parameter = nullptr;
        std::vector<QPointer<QWidget>> controls = {};
        TextSource source = TextSource::WizardFile;
        std::function<bool()> step = {}; ///< in place of a parameter
    };

    /// Every listed parameter whose control the window has. One that is shown twice is read once.
    void AddRows(const CWindow& window, TextSource source = TextSource::WizardFile);
    /// Something of the window's own that asks the drive once. False, having said why, stops the update.
    void AddStep(std::function<bool()> step);

    std::vector<Item> items;
    bool whileMotorTurns = false; ///< otherwise nothing is read while boxes are held (BoxHold)
};

/// Begins a pass, whose turns come from the event loop: each re-reads one parameter and shows it, except in the control
/// that has the focus and in rows that are changed and not written. The first failed read stops the timer and is
/// reported; what is left of the pass is read all the same. At its end the timer's period begins anew. While one
/// pass is on nobody begins another.
///
/// `timerHandle` lives as long as `timerOwner`. The pass ends when that goes, with the update list and with the timer.
void BeginUpdatePass(CWindow& timerOwner, int& timerHandle, UpdatePlan plan);
/// Ends the pass that is on where it is.
void EndUpdatePass();
bool IsUpdatePassOn();

/// Begins a pass over the window's listed parameters.
void UpdateParameters(CWindow& window, int& timerHandle, TextSource source = TextSource::WizardFile);

} // namespace krt550
