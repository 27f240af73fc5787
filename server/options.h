#pragma once

#include "server/rtu_server.h"

#include <QHostAddress>
#include <QStringList>

#include <optional>

namespace krt550 {

/// What the command line of krt550sim asks for.
struct ServerOptions {
    enum class Task { Run, Help, Version, Map, Complain };

    Task task = Task::Run;
    QString complaint; ///< one line, for Task::Complain

    QString drive = QStringLiteral("sim"); ///< as MakeNamedDrive takes it
    QString parameterFile;                 ///< empty: the one that comes with the program
    QString macroFile;                     ///< empty: beside the parameters
    QHostAddress address;
    quint16 port = 0;
    std::optional<SerialLine> line; ///< otherwise TCP
    quint8 unit = 1;
    int speed = 1;
};

/// Reads the arguments, the program's name first.
ServerOptions ParseServerOptions(const QStringList& arguments);

/// Text of --help; there has to be a QCoreApplication.
QString ServerHelpText();

} // namespace krt550
