// What every test includes, and how a failed comparison shows Qt's texts.
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

inline void PrintTo(const QStringList& texts, std::ostream* out) {
    *out << "[" << texts.join(QStringLiteral(", ")).toStdString() << "]";
}

inline void PrintTo(const QSize& size, std::ostream* out) { *out << size.width() << " x " << size.height(); }
