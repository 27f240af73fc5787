#pragma once
#include <QString>
class QWidget;
namespace krt550 { inline void ShowHelp(QWidget*, const QString&) {} }
