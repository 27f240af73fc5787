#pragma once

#include <QLabel>

#include <optional>

namespace krt550 {

/// The grey of a band.
inline const QColor kLightGrey(192, 192, 192);

/// The looks that pages ask for.
enum class StaticLook {
    Good,    ///< black on green
    Bad,     ///< black on red
    Neutral, ///< window text on the button face
    Grey     ///< on light grey
};

/// Static that shows a status by its colours.
class CColorStatic : public QLabel {
    Q_OBJECT

public:
    explicit CColorStatic(QWidget* parent = nullptr);

    void SetLook(StaticLook look);
    /// White on black; back to the look before: plain, or grey when the grey look was set.
    void SetInverted(bool inverted);
    void SetBoldFont();
    void SetItalicFont();

    /// Colours in use; nothing where the window behind shows through.
    struct Colors {
        QColor text;
        std::optional<QColor> behindText;
        std::optional<QColor> behindRest;
    };
    Colors GetColors() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Show(int look, std::optional<QColor> brush);

    int m_look = 0;
    std::optional<QColor> m_brush = QColor(Qt::white);
    bool m_lightGrey = false;
};

} // namespace krt550
