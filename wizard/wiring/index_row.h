#pragma once

#include "wizard/texts/text_records.h"

#include <QString>

#include <functional>

namespace krt550 {

class CParameter;
class CParameterGroup;
class CWindow;

/// Controls of an index row; label, value and unit may be missing (0).
struct IndexRowIds {
    int label = 0;
    int choice = 0; ///< drop-down
    int index = 0;  ///< edit
    int value = 0;  ///< of what the index names
    int unit = 0;   ///< of what the index names
};

/// What an index row says.
struct IndexRowTexts {
    const char* unequalLists; ///< keys and names do not belong together
    const char* readFailed;
    int otherChosen;      ///< string: "Other" cannot be chosen
    bool numbered = true; ///< choices begin with their index
};

inline constexpr IndexRowTexts kAnalogueOutputTexts{"Error while population AO index",
                                                    "Error while uploading AO parameter", 351};
inline constexpr IndexRowTexts kTransmitReceiveTexts{"Error while population transmit/receive parameter",
                                                     "Error while uploading transmit/receive parameter", 351, false};

/// A row for a parameter whose value names a signal: a drop-down of named choices (basic view) and an edit with the
/// bare number (advanced view). The edit is what is written, the drop-down fills it.
///
/// The row is changed as long as the edit shows something else than the drive holds.
class CIndexRow {
public:
    /// Sets the window's handlers for the row's controls. `window` and `texts` outlive the row.
    CIndexRow(CWindow& window, quint16 reg, const IndexRowIds& ids, const IndexRowTexts& texts = kAnalogueOutputTexts);
    CIndexRow(const CIndexRow&) = delete;
    CIndexRow& operator=(const CIndexRow&) = delete;

    quint16 GetRegister() const { return m_register; }
    /// Null until bound, and when the drive lacks it.
    CParameter* GetParameter() const { return m_parameter; }
    /// Label in place of register and name, from the next binding on; empty: register and name.
    void SetCaption(const QString& caption) { m_caption = caption; }

    /// Finds and reads the parameter below `root` and fills the controls. A parameter that the drive lacks adds a line
    /// to `errors` and is no failure; false when reading failed or the list is unsound (shown).
    bool Bind(CParameterGroup* root, const IndexList& list, QString& errors);
    /// Writes the edit when the row is changed and reads it back. False when something was refused (shown): the row
    /// stays changed.
    bool Write();
    bool IsChanged() const;
    /// Whether the drive has told its value.
    bool IsRead() const { return m_read; }
    void Unmark();
    /// Shows drop-down or edit; a heading above the edits is the window's.
    void ShowView(bool basic);

private:
    void Chosen();
    void Edited();
    void Left();
    void ShowChoiceOfEdit();
    void ShowWaiting();
    void Judge();

    CWindow& m_window;
    quint16 m_register;
    IndexRowIds m_ids;
    const IndexRowTexts& m_texts;
    QString m_caption;
    CParameter* m_parameter = nullptr;
    IndexList m_list;
    bool m_read = false;    ///< the parameter holds what the drive does
    bool m_showing = false; ///< the program writes into the controls
};

} // namespace krt550
