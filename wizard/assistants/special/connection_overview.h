#pragma once

#include "wizard/resources/terminal_overview.h"

#include <QString>

#include <vector>

class QWidget;

namespace krt550 {

class CParameterGroup;
class CReadOnce;
class CWindow;

/// What the terminals of the control board are connected to, shown on a page that has the overview's controls.
class CConnectionOverview {
public:
    /// `window` outlives the overview.
    explicit CConnectionOverview(CWindow& window) : m_window(window) {}

    /// The overview's own control for an id of the layout; null for all others.
    static QWidget* MakeControl(int id, QWidget* parent);
    /// Gives legend and note their looks. Once, when the controls are there.
    void Dress();
    /// Adds the registers that ShowAll reads.
    static void AddReads(std::vector<quint16>& registers);
    /// Where nothing waits for Apply.
    static void HideNote(CWindow& window);

    /// Reads what the terminals of a kind depend on and shows it; what cannot be read shows "?". A parameter that the
    /// drive lacks is told in an error box.
    void Show(TerminalKind kind, CParameterGroup* root, CReadOnce& reads);
    void ShowAll(CParameterGroup* root, CReadOnce& reads);
    /// Nothing is known: "?" at every terminal, and no name is inverted.
    void ShowUnknown();
    /// Lets the settings be opened, or not.
    void EnableSettings(bool enable);

private:
    void ShowInputs(TerminalKind kind, CParameterGroup* root, CReadOnce& reads);
    void ShowOutputs(TerminalKind kind, CParameterGroup* root, CReadOnce& reads);
    void ShowTerminal(TerminalKind kind, int number, const QString& connection, bool inverted);

    CWindow& m_window;
};

} // namespace krt550
