// What every test may count on without a word: Qt's widgets, the standard library, GoogleTest, and how a failed
// comparison shows Qt's texts.
#pragma once

#include <QtWidgets>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <limits>
#include <list>
#include <map>
#include <memory>
#include <numbers>
#include <optional>
#include <ostream>
#include <random>
#include <set>
#include <span>
#include <tuple>
#include <vector>

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QSize& size, std::ostream* out) {
    *out << size.width() << " x " << size.height();
}
