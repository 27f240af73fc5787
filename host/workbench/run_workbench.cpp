#include "host/workbench/run_workbench.h"

#include "host/interrupt.h"
#include "host/session.h"
#include "host/tool.h"
#include "host/workbench/workbench.h"

#include <QApplication>

namespace krt550 {

int RunWorkbench(CSession& session) {
    QApplication::setQuitOnLastWindowClosed(false);
    CWorkbench workbench(session);
    const CInterrupt interrupt([&workbench] { workbench.EndFromOutside(); });
    workbench.Open(session.Options().drive);
    QApplication::exec();
    if (workbench.WasNameWrong())
        return kExitUsage;
    return workbench.HasGoneWell() && !session.HasLogFailed() && !interrupt.HasCome() ? 0 : kExitFailure;
}

} // namespace krt550
