// What most files of the wizard include.
#pragma once

#include <QComboBox>
#include <QHash>
#include <QLabel>
#include <QPainter>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>
