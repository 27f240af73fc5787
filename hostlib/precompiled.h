// What most files of the host libraries, the simulated drive and the host include.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>
