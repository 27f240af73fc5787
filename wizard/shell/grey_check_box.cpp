#include "wizard/shell/grey_check_box.h"

#include "wizard/shell/color_static.h"

namespace krt550 {

void CGreyCheckBox::SetGrey(bool grey) {
    QPalette colours;
    if (grey) {
        colours = palette();
        colours.setColor(backgroundRole(), kLightGrey);
        colours.setColor(QPalette::WindowText, Qt::black);
    }
    setPalette(colours);
    setAutoFillBackground(grey);
}

} // namespace krt550
