#include "host/tool.h"

#include "host/commands/command.h"
#include "host/last_stop.h"
#include "host/options.h"
#include "host/session.h"
#include "host/wizard_alone.h"
#include "host/workbench/run_workbench.h"

#include <QApplication>
#include <QTextStream>

#include <cstdio>

namespace krt550 {
namespace {

void Print(FILE* stream, const QString& text) {
    std::fputs(text.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

QStringList ArgumentsOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

bool HasDisplay() {
    for (const char* variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        if (!qEnvironmentVariableIsEmpty(variable))
            return true;
    return false;
}

/// Passes Qt's messages on, except those about surroundings that a bare machine or the offscreen platform lacks and
/// that nobody who runs a play can do anything about.
void PassOnMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    for (const char* surroundings : {"This plugin does not support", "XDG_RUNTIME_DIR"})
        if (message.contains(QLatin1String(surroundings)))
            return;
    Print(stderr, qFormatLogMessage(type, context, message) + QLatin1Char('\n'));
    // What Qt says last before it ends the program without a way back: the display has died.
    if (message.contains(QLatin1String("connection broke")))
        CLastStop::FinishNow();
}

} // namespace

int RunTool(int argc, char** argv) {
    qInstallMessageHandler(PassOnMessage);
    QStringList arguments = ArgumentsOf(argc, argv);
    if (const ToolCommand* command = argc > 1 ? FindCommand(arguments[1]) : nullptr) {
        if (command->run)
            return command->run(arguments);
        arguments = AsOptions(*command, arguments);
    }
    const ToolOptions options = ParseOptions(arguments);
    // The command line is the tool's own: Qt gets the program name alone.
    int qtArgumentCount = 1;
    switch (options.task) {
    case ToolOptions::Task::Help: {
        const QCoreApplication application(qtArgumentCount, argv);
        Print(stdout, HelpText());
        return 0;
    }
    case ToolOptions::Task::Version:
        Print(stdout, VersionText());
        return 0;
    case ToolOptions::Task::Complain:
        Print(stderr, QStringLiteral("krt550tool: %1\n").arg(options.complaint));
        return kExitUsage;
    case ToolOptions::Task::Run:
        break;
    }
    if (!HasDisplay() && options.playFile.isEmpty()) {
        Print(stderr, QStringLiteral("krt550tool: there is no display; only a play (--play FILE) runs without one\n"));
        return kExitFailure;
    }
    if (!HasDisplay())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The stepped clock of such a play needs Qt's own event dispatcher.
    if (options.IsUnwatched())
        qputenv("QT_NO_GLIB", "1");
    QApplication application(qtArgumentCount, argv);
    application.setApplicationDisplayName({});
    return CSession(options).Run(options.isWizardAlone ? RunWizardAlone : RunWorkbench);
}

} // namespace krt550
