#pragma once

#include <QObject>

// The library's header goes by Qt's short keywords, which are switched off here.
#define signals Q_SIGNALS
#define foreach Q_FOREACH
#include <qcustomplot.h>
#undef foreach
#undef signals
