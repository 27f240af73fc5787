// What nearly every file of the wizard includes.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>
