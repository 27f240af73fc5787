#pragma once

#include "host/backup/parameter_values.h"
#include "host/commands/command_line.h"
#include "host/commands/interruption.h"
#include "host/connection.h"
#include "host/record/record_writer.h"
#include "host/record/recording.h"
#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter_link.h"

#include <QJsonObject>

#include <memory>

namespace krt550 {

/// Options of the commands that work on a drive: which one, and its files.
inline constexpr CommandOption kDriveOption = {
    "drive", "NAME", "drive to connect: sim (default), modbus-tcp:HOST:PORT, ...; see krt550tool --help"};
inline constexpr CommandOption kParametersOption = {"parameters", "FILE", "description of the drive's parameters"};
inline constexpr CommandOption kMacrosOption = {"macros", "FILE", "application macros of the simulated drive"};
inline constexpr CommandOption kRecordOption = {
    "record", "FILE", "appends what is done, and what the drive held before and after, to a record"};
inline constexpr CommandOption kJsonOption = {"json", nullptr, "prints JSON, for scripts"};

/// The drive that a command works on. Each of its operations tells what is wrong.
class CCommandDrive {
public:
    /// `line` is borrowed.
    explicit CCommandDrive(const CCommandLine& line) : m_line(line) {}

    /// Reads the description alone. What the program ends with, when that fails.
    std::optional<int> Describe();
    /// Describe, and connects.
    std::optional<int> Connect();
    /// The same for a command that has kRecordOption: what passes Drive and Link from now on is recorded.
    std::optional<int> ConnectRecorded();
    /// Ends the record, where there is one; a gap in it makes a failure of the status 0.
    int End(int status);

    /// All that the description knows.
    std::span<const ParameterDescription> Described() const { return m_described; }
    /// What the connected drive has, by its own names.
    const std::vector<ParameterDescription>& Parameters() const { return m_parameters; }
    CHostDrive& Drive() { return m_recording ? m_recording->Drive() : m_connection->GetDrive(); }
    CParameterLink& Link() { return m_recording ? m_recording->Link() : m_connection->GetLink(); }
    QString Name() const;
    /// Ctrl+C has been pressed.
    bool IsInterrupted() const { return m_interruption.HasCome(); }

    /// Reads values; tells which could not be read.
    ParameterValues Read(std::span<const ParameterDescription> parameters);
    /// Registers of arguments such as 99.06. Nothing, with all that is wrong told, when one is none of the drive's.
    std::optional<std::vector<ParameterDescription>> Find(const QStringList& arguments);

private:
    const CCommandLine& m_line;
    CInterruption m_interruption;
    std::vector<ParameterDescription> m_described;
    std::vector<ParameterDescription> m_parameters;
    std::unique_ptr<CConnection> m_connection;
    std::unique_ptr<CRecordWriter> m_record;
    std::optional<CRecording> m_recording;
};

/// What is known of a parameter's value, for scripts: register, name, value (a text of the value list, or a number),
/// unit, word. Without a word the value is null.
QJsonObject ValueJson(const ParameterDescription& parameter, std::optional<quint16> word);

void PrintJson(const QJsonArray& array);

} // namespace krt550
