#include "host/wizard_alone.h"

#include "host/drive_stage.h"
#include "host/interrupt.h"
#include "host/play/player.h"
#include "host/session.h"
#include "host/tool.h"

#include <QApplication>

namespace krt550 {

int RunWizardAlone(CSession& session) {
    QString error;
    bool isWrong = false;
    const std::unique_ptr<CConnectedDrive> drive = session.Connector().Connect(session.Options().drive, error, isWrong);
    if (!drive) {
        session.Complain(error);
        return isWrong ? kExitUsage : kExitFailure;
    }
    CDriveStage stage(drive->Connection(), session.Log());
    std::optional<CPlayer> player;
    if (const PlayScript* script = session.Script()) {
        player.emplace(*script, stage, session.PlayHands(), drive->Closing(), session.Options().shotDirectory,
                       PlayOutput{[&session](const QString& line) { session.Print(line); },
                                  [&session](const QString& line) { session.PrintError(line); }});
        player->Begin();
    }
    const CInterrupt interrupt([&drive] { drive->Closing().Begin(); });
    drive->Begin();
    const int result = session.Module().Run(&drive->Drive());
    drive->Closing().End();
    bool well = drive->LastStop().Finish() && result == 0;
    session.Print(QStringLiteral("RunWizard returned %1").arg(result));
    if (player && !player->Finish())
        well = false;
    // A help window may still be open.
    QApplication::closeAllWindows();
    const bool logged = drive->End() && !session.HasLogFailed();
    return well && logged && !interrupt.HasCome() ? 0 : kExitFailure;
}

} // namespace krt550
