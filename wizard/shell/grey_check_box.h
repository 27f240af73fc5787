#pragma once

#include <QCheckBox>

namespace krt550 {

/// Check box that can stand on a light-grey band.
class CGreyCheckBox : public QCheckBox {
    Q_OBJECT

public:
    explicit CGreyCheckBox(QWidget* parent = nullptr) : QCheckBox(parent) {}

    /// Light grey behind the box and its text, or what the window shows.
    void SetGrey(bool grey);
};

} // namespace krt550
