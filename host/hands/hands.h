#pragma once

#include <QString>

class QComboBox;
class QTabBar;
class QWidget;

namespace krt550 {

/// What a play does to a window with mouse and keyboard: the functions of hands/input.h, where they are described.
struct Hands {
    QString (*click)(QWidget* control);
    QString (*typeAndLeave)(QWidget* field, const QString& text);
    QString (*pickEntry)(QComboBox* list, const QString& entry);
    QString (*pickFromMenu)(QWidget* control, const QString& entry);
    QString (*clickTab)(QTabBar* tabs, const QString& text);
    QString (*pressKey)(QWidget* control, const QString& key);
};

} // namespace krt550

/// The part "hands".
extern "C" const krt550::Hands* krt550_hands();
