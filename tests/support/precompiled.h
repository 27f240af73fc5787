// What every test includes, and how a failed comparison shows Qt's texts.
#pragma once

#include "tests/support/print_qt.h"

#include <QApplication>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <vector>

inline void PrintTo(const QSize& size, std::ostream* out) {
    *out << size.width() << " x " << size.height();
}
