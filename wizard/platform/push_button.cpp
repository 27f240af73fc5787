#include "wizard/platform/push_button.h"

#include "wizard/platform/window.h"

#include <QShortcut>
#include <QStyleOptionButton>

#include <algorithm>

namespace krt550 {

CPushButton::CPushButton(QWidget* parent) : QPushButton(parent) {}

// No shortcut of Qt's own: that would press the button a moment later and take the focus at once, so that an edit
// complains of its text before the button does.
void CPushButton::UseMnemonic() {
    if (!m_mnemonic) {
        m_mnemonic = new QShortcut(this);
        m_mnemonic->setAutoRepeat(false);
        connect(m_mnemonic, &QShortcut::activated, this, [this] { click(); });
    }
    SetCaption(text());
}

void CPushButton::SetCaption(const QString& text) {
    setText(text);
    if (!m_mnemonic)
        return;
    const qsizetype letter = LetterPosition(text);
    m_mnemonic->setKey(letter < 0 ? QKeySequence() : QKeySequence::mnemonic(QLatin1Char('&') + text.mid(letter, 1)));
}

QKeySequence CPushButton::GetMnemonic() const {
    return m_mnemonic ? m_mnemonic->key() : QKeySequence();
}

qsizetype CPushButton::LetterPosition(const QString& text) const {
    const auto letter = std::ranges::find_if(text, [](QChar c) { return c.isLetter(); });
    return letter == text.end() ? -1 : letter - text.begin();
}

void CPushButton::initStyleOption(QStyleOptionButton* option) const {
    QPushButton::initStyleOption(option);
    if (const qsizetype letter = LetterPosition(option->text); m_mnemonic && letter >= 0)
        option->text.insert(letter, QLatin1Char('&'));
}

void PressByKey(CWindow& window, const QKeySequence& key, int id) {
    auto* shortcut = new QShortcut(key, &window);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, &window, [&window, id] {
        if (auto* button = window.GetControl<QAbstractButton>(id); button && button->isVisible())
            button->click();
    });
}

} // namespace krt550
