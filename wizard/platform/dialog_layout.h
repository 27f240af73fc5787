#pragma once

#include <QString>

#include <vector>

namespace krt550 {

enum class ControlKind {
    Label,       ///< static text
    WrappedText, ///< static text over several lines
    GroupBox,
    Edit,
    DropDown, ///< drop-down list
    CheckBox,
    CheckList,     ///< list of entries with a tick each
    MultilineText, ///< text over any number of lines, to be read, scrolled and copied
    PushButton,
    DefaultButton, ///< push button that Enter presses
    Picture,       ///< picture by number, scaled into its rectangle
    Icon,          ///< static that the page gives a pixmap
    ProgressBar,
    Slider,      ///< horizontal, 0 to 100
    Placeholder, ///< marks where a child window goes; shows nothing
    Custom       ///< made by the window itself
};

/// Rectangle in dialog units: x in quarters of the average character width, y in eighths of the character height.
struct DialogRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// One control of a layout.
struct ControlLayout {
    int id = 0; ///< unique in its layout; never 0
    ControlKind kind = ControlKind::Label;
    DialogRect rect;
    QString text = {};
    int picture = 0; ///< Picture: its number
    int buddy = 0;   ///< Label: id of the value control that it names
    quint16 reg = 0; ///< value control of a parameter row: the register
    bool bold = false;
    Qt::Alignment alignment = {}; ///< Label: horizontally; to the left unless given
    QString name = {};            ///< what a screen reader calls a control that has neither a label nor a text
    bool mnemonic = false;        ///< push button: Alt and its text's first letter press it
};

/// A dialog layout: a plain value. The controls stand in tab order.
struct DialogLayout {
    int number = 0;
    int width = 0; ///< dialog units
    int height = 0;
    QString caption;
    std::vector<ControlLayout> controls;
};

} // namespace krt550
