#include "host/link/modbus_drive.h"

#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/parameter_tree.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <cmath>

namespace krt550 {
namespace {

constexpr int kBeatMs = 100;
constexpr quint32 kLastFaultRequest = 1;

std::set<quint16> RegistersOf(const std::vector<ParameterDescription>& parameters) {
    std::set<quint16> registers;
    for (const ParameterDescription& parameter : parameters)
        registers.insert(parameter.reg);
    return registers;
}

} // namespace

CModbusDrive::CModbusDrive(WirePlace place, std::vector<ParameterDescription> parameters, QString wizardFile,
                           CLine::Now now)
    : m_parameters(std::move(parameters)), m_thread(std::move(place), RegistersOf(m_parameters), std::move(now)),
      m_info(std::move(wizardFile)) {
    // Real time, whatever the clock of the wizard does: that is what the drive's supervision goes by.
    QObject::connect(&m_beat, &QTimer::timeout, &m_beat, [this] { m_thread.Beat(); });
    m_beat.start(kBeatMs);
}

bool CModbusDrive::Connect(QString& error) {
    const bool connected = RefreshState();
    error = m_link.error;
    return connected;
}

bool CModbusDrive::CLink::ReadWord(quint16 reg, quint16& word) {
    if (const auto announced = m_thread.TakeAnnounced(reg)) {
        word = *announced;
        return Note({});
    }
    quint16 answer = 0;
    const LineResult result = m_thread.Run([&](CLine& line) { return line.Read(reg, std::span(&answer, 1)); });
    if (result.IsGood())
        word = answer;
    return Note(result);
}

bool CModbusDrive::CLink::WriteWord(quint16 reg, quint16 word) {
    return Note(m_thread.RunChange([&](CLine& line) { return line.Write(reg, word); }));
}

bool CModbusDrive::CLink::Note(const LineResult& result) {
    error = result.text;
    isGood = result.wasAnswered;
    return result.IsGood();
}

bool CModbusDrive::Command(WireCommand command, std::optional<double> rpm) {
    return m_link.Note(m_thread.RunChange([&](CLine& line) {
        const LineResult result = line.Command(command, rpm);
        m_state = line.GetState();
        return result;
    }));
}

bool CModbusDrive::StopMotor() {
    return m_link.Note(m_thread.RunChange([](CLine& line) { return line.Stop(); }, true));
}

bool CModbusDrive::RefreshState() {
    return m_link.Note(m_thread.Run([&](CLine& line) {
        const LineResult result = line.ReadState();
        m_state = line.GetState();
        return result;
    }));
}

bool CModbusDrive::SetReference(const QString& reference) {
    bool isNumber = false;
    const double rpm =
        QLocale::c().toDouble(reference.trimmed().replace(QLatin1Char(','), QLatin1Char('.')), &isNumber);
    if (!isNumber || !HundredthsOf(rpm)) {
        m_link.error = QStringLiteral("\"%1\" is not a speed reference.").arg(reference);
        return false;
    }
    return Command(WireCommand::SetReference, rpm);
}

QString CModbusDrive::GetReference() {
    RefreshState();
    const bool whole = std::abs(m_state.reference - std::round(m_state.reference)) < 0.05;
    return dtoa(m_state.reference, whole ? 0 : 1);
}

quint16 CModbusDrive::ReadFaultBuffer(quint32& header, const FaultBufferRequest* request, quint32* byteCount,
                                      QByteArray& record) {
    LineResult result{CommunicationError::Refused,
                      CCommunicationFacade::GetErrorMessage(quint16(CommunicationError::Refused), false)};
    WireFaultRecord answer;
    if (request && byteCount && request->code == kLastFaultRequest)
        result = m_thread.Run([&](CLine& line) {
            std::array<quint16, wire::kFaultRecordSize> words = {};
            const LineResult read = line.Read(wire::kFaultRecord, words);
            answer = DecodeFaultBlock(words);
            return read;
        });
    if (result.IsGood() && answer.error != 0)
        result = {CommunicationError{answer.error}, CCommunicationFacade::GetErrorMessage(answer.error, false)};
    if (m_link.Note(result)) {
        header = answer.header;
        *byteCount = static_cast<quint32>(answer.record.size());
        record = answer.record;
    }
    return static_cast<quint16>(result.error);
}

const ParameterDescription* CModbusDrive::FindParameter(quint16 reg) const {
    const auto found = std::ranges::find(m_parameters, reg, &ParameterDescription::reg);
    return found == m_parameters.end() ? nullptr : &*found;
}

void CModbusDrive::SetTreeLink(CParameterLink* link) {
    m_treeLink = link;
    if (m_tree)
        m_retiredTrees.push_back(std::move(m_tree));
}

bool CModbusDrive::GetParameterRoot(CParameterGroup** root) {
    if (!root)
        return false;
    if (!m_tree)
        m_tree = BuildParameterTree(m_parameters, m_treeLink ? m_treeLink : &m_link);
    *root = m_tree.get();
    return true;
}

} // namespace krt550
