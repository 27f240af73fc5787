#pragma once

#include <QPushButton>

class QShortcut;

namespace krt550 {

class CWindow;

/// A push button that the first letter of its caption, with Alt, can press. The letter is underlined where the style
/// shows such letters, and the caption stays what it is.
class CPushButton : public QPushButton {
    Q_OBJECT

public:
    explicit CPushButton(QWidget* parent = nullptr);

    /// From now on the caption's first letter presses the button, also when the caption changes.
    void UseMnemonic();
    /// Shows a text; an ampersand in it is doubled.
    void SetCaption(const QString& text);
    /// Alt and the letter; empty without UseMnemonic.
    QKeySequence GetMnemonic() const;

protected:
    void initStyleOption(QStyleOptionButton* option) const override;

private:
    qsizetype LetterPosition(const QString& text) const;

    QShortcut* m_mnemonic = nullptr;
};

/// Lets a key press the window's button `id`, from every control of the window, whenever the button can be pressed.
void PressByKey(CWindow& window, const QKeySequence& key, int id);

} // namespace krt550
