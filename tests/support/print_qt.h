#pragma once

#include <QString>
#include <QStringList>

#include <ostream>

/// How failing comparisons print Qt's texts.
QT_BEGIN_NAMESPACE
void PrintTo(const QString& text, std::ostream* stream);
QT_END_NAMESPACE
