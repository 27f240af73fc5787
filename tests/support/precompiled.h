// What every test includes, and how a failed comparison shows Qt's texts.
#pragma once

#include "tests/support/print_qt.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <ostream>

inline void PrintTo(const QSize& size, std::ostream* out) {
    *out << size.width() << " x " << size.height();
}
