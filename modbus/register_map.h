#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>
#include <span>

namespace krt550 {

/// The drive's register map on Modbus: what host and drive agree on. Addresses are those in the request itself, counted
/// from 0; a tool that counts from 1 adds 1 (and perhaps 400000). Multi-register numbers have the high word first.
///
/// Parameter 99.06 is the holding register 9906, as raw word of its description. Everything else is a field of
/// RegisterFields, read and written as a whole, with function codes 03, 06 (one register) and 16.
namespace wire {

inline constexpr quint16 kFirstParameter = 100; ///< 1.00
inline constexpr quint16 kLastParameter = 19999;

// Commands: written only.
inline constexpr quint16 kCommand = 20000;          ///< low byte a WireCommand, high byte its number or 0
inline constexpr quint16 kCommandReference = 20001; ///< signed, 2 registers [0.01 rpm]
inline constexpr quint16 kCommandSize = 3;          ///< of a command with its reference

// State, as the asking connection sees it: one read of kStateSize from kState is all of it; the first kStateHeadSize
// are all but the reason's text.
inline constexpr quint16 kState = 20100;
inline constexpr quint16 kStatus = 20100;       ///< 2 registers, bits of wire_status
inline constexpr quint16 kControlPlace = 20102; ///< a WireControlPlace
inline constexpr quint16 kReference = 20103;    ///< signed, 2 registers [0.01 rpm]
inline constexpr quint16 kActiveFault = 20105;  ///< code of the trip that is not reset, 0: none
inline constexpr quint16 kCommandCount = 20106; ///< commands the drive has carried out or refused, modulo 65536
inline constexpr quint16 kLastCommand = 20107;  ///< the last one of this connection, 0: none yet
inline constexpr quint16 kLastResult = 20108;   ///< 0 carried out, otherwise the exception that it was refused with
inline constexpr quint16 kReason = 20109;       ///< text of this connection's last refusal: its bytes, then the bytes
inline constexpr quint16 kReasonBytes = 200;    ///< at most
inline constexpr quint16 kStateHeadSize = kReason - kState + 1; ///< up to the length of the reason
inline constexpr quint16 kStateSize = kStateHeadSize + kReasonBytes / 2;

// Fault record, as CHostDrive::ReadFaultBuffer gives it: read in one request.
inline constexpr quint16 kFaultRecord = 20300;
inline constexpr quint16 kFaultError = 20300;  ///< a CommunicationError, 0: there is a record
inline constexpr quint16 kFaultHeader = 20301; ///< 2 registers
inline constexpr quint16 kFaultBytes = 20303;  ///< number of bytes that follow, high byte first
inline constexpr quint16 kFaultMostBytes = 78;
inline constexpr quint16 kFaultRecordSize = kFaultBytes - kFaultRecord + 1 + kFaultMostBytes / 2;

// Identification.
inline constexpr quint16 kIdentity = 20400;
inline constexpr quint16 kSignature = 20400; ///< kSignatureValue
inline constexpr quint16 kMapVersion = 20401;
inline constexpr quint16 kUnitTextCount = 20402;
inline constexpr quint16 kIdentitySize = 3;
inline constexpr quint16 kSignatureValue = 550;
inline constexpr quint16 kMapVersionValue = 1;

// The drive's unit texts: unit code c has kUnitTextSize registers from kUnitTexts + c * kUnitTextSize.
inline constexpr quint16 kUnitTexts = 21000;
inline constexpr quint16 kUnitTextBytes = 14;
inline constexpr quint16 kUnitTextSize = 1 + kUnitTextBytes / 2;
inline constexpr quint16 kMostUnitTexts = 256;

inline constexpr quint16 kMostRead = 125; ///< registers that one request may read
inline constexpr quint16 kMostWritten = 123;

} // namespace wire

/// Bits of wire::kStatus.
namespace wire_status {
inline constexpr quint32 kContactorClosed = 1;
inline constexpr quint32 kRunning = 2;
inline constexpr quint32 kLocalControl = 4; ///< held by the connection that asks
inline constexpr quint32 kFault = 8;
inline constexpr quint32 kStopped = 16;
} // namespace wire_status

enum class WireControlPlace : quint16 {
    Remote = 0, ///< terminals or overriding control
    Local = 1,  ///< local control, held by the connection that asks
    Other = 2   ///< local control held by another connection, or another place that does not give the drive up
};

/// Low byte of wire::kCommand.
enum class WireCommand : quint8 {
    TakeLocalControl = 1,
    ReleaseLocalControl = 2,
    CloseContactor = 3,
    OpenContactor = 4,
    StartMotor = 5,
    StopMotor = 6,
    ResetFault = 7,
    SetReference = 8, ///< with the reference behind it, in one request of three registers
    Poll = 9          ///< does nothing: the drive has heard the host
};

/// What the drive answers a request with that it does not carry out.
enum class WireException : quint8 {
    None = 0,
    IllegalFunction = 1,
    UnknownRegister = 2,
    OutOfLimits = 3, ///< also a malformed request
    Refused = 4,     ///< the drive says why in wire::kReason
    Busy = 6,        ///< a command is under way, or another connection holds local control
    NoSuchUnit = 11  ///< TCP only
};

/// A command's number (high byte of wire::kCommand): 0, not numbered: always looked at. 1 to 255: has to be the one
/// behind the number of the connection's last numbered command, of a connection's first one any. The number of the last
/// one again, with the same code, is answered as it was and not carried out twice; any other number is a frame that has
/// strayed and is refused with OutOfLimits. A stop is carried out whatever its number.
constexpr quint8 NextCommandNumber(quint8 number) {
    return number == 255 ? quint8{1} : static_cast<quint8>(number + 1);
}

constexpr quint16 CommandWord(WireCommand command, quint8 number = 0) {
    return static_cast<quint16>(number << 8 | static_cast<quint8>(command));
}

enum class FieldAccess { Read, Write };
enum class FieldType { Number, Signed, Bits, Text, Bytes };

/// One field of the map. It is read as part of any range; it is written whole.
struct RegisterField {
    quint16 address = 0;
    quint16 size = 1; ///< registers
    FieldAccess access = FieldAccess::Read;
    FieldType type = FieldType::Number;
    const char* unit = "";
    const char* range = "";
    const char* meaning = "";
};

/// All fields but the parameters, by address.
std::span<const RegisterField> RegisterFields();

/// The field that an address lies in, or null.
const RegisterField* FindField(quint16 address);

struct CommandDef {
    WireCommand command;
    const char* meaning;
};

/// All commands, by code.
std::span<const CommandDef> CommandDefs();

/// The tables of fields and of commands as they stand in docs/modbus.md.
QString MapText();

} // namespace krt550
