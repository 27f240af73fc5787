#pragma once

#include "wizard/platform/terminal_registers.h"
#include "wizard/texts/text_records.h"

#include <QString>

#include <functional>

namespace krt550 {

class CParameter;
class CParameterGroup;
class CWindow;

/// Controls of a source row.
struct SourceRowIds {
    int choice = 0; ///< drop-down
    int index = 0;  ///< edit
    int bit = 0;    ///< edit
    int invert = 0; ///< check box
};

/// What a digital output carries: one bit of a parameter, inverted when the index is negative. A drop-down of named
/// sources (basic view), or index and bit as numbers (advanced view), and a check box for the inversion. The edits are
/// what is written, the drop-down fills them.
class CSourceRow {
public:
    static constexpr quint16 IndexRegister(int number) { return DOIndexRegister(number); }
    static constexpr quint16 BitRegister(int number) { return DOBitRegister(number); }

    /// Sets the window's handlers for the row's controls. `window` outlives the row.
    CSourceRow(CWindow& window, int number, const SourceRowIds& ids);
    CSourceRow(const CSourceRow&) = delete;
    CSourceRow& operator=(const CSourceRow&) = delete;

    /// Called when a person has changed the source, or has taken the change back.
    void SetChangeHandler(std::function<void()> handler) { m_onChange = std::move(handler); }

    /// Finds and reads both parameters below `root` and fills the controls. A parameter that the drive lacks adds a
    /// line to `errors` and is no failure; false when reading failed or the list is unsound (shown).
    bool Bind(CParameterGroup* root, const IndexList& list, QString& errors);
    /// Writes index and bit as far as they are changed. Both are judged before the first one is written, the bit
    /// follows only an index that was taken, and an index whose bit was refused is taken back: an output never carries
    /// a mixture that nobody asked for. False when something was refused (shown); the row is to be bound again.
    bool Write();
    bool IsChanged() const;
    void Unmark();
    /// Shows drop-down or edits; the headings above the edits are the window's.
    void ShowView(bool basic);

private:
    void Chosen();
    void Edited();
    void Left();
    void Judge(bool chosen);
    void ShowChoiceOfEdits();
    void MoveSignIntoTick();
    QString TypedIndex() const;
    QString SignedIndex() const;
    bool WriteIndex(quint16& former);

    CWindow& m_window;
    quint16 m_indexRegister;
    quint16 m_bitRegister;
    SourceRowIds m_ids;
    CParameter* m_index = nullptr;
    CParameter* m_bit = nullptr;
    IndexList m_list;
    bool m_read = false;    ///< the parameters hold what the drive does
    bool m_showing = false; ///< the program writes into the controls
    std::function<void()> m_onChange;
};

} // namespace krt550
