#include "wizard/shell/step_icons.h"

#include "wizard/platform/picture.h"

#include <QLabel>

namespace krt550 {
namespace {

struct Look {
    int strip; ///< picture with the seven digits
    const char* meaning;
};

Look LookOf(StepState state) {
    switch (state) {
    case StepState::Done:
        return {109, "done"};
    case StepState::Pending:
        return {108, "not done yet"};
    case StepState::NotChosen:
        break;
    }
    return {106, "not chosen"};
}

} // namespace

void ShowStepIcon(QLabel& icon, int step, StepState state) {
    const Look look = LookOf(state);
    icon.setPixmap(FramesOfStrip(PictureAmongText(look.strip, icon), kStepCount).value(step - 1));
    icon.setAccessibleName(QStringLiteral("Step %1: %2").arg(step).arg(QLatin1String(look.meaning)));
    icon.setToolTip(icon.accessibleName());
}

} // namespace krt550
