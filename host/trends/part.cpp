#include "host/trends/trend_panel.h"

extern "C" Q_DECL_EXPORT krt550::CTrendDoor* krt550_trends() {
    return new krt550::CTrendPanel;
}
