#include "host/connected_drive.h"

#include "hostlib/tolvbo32/parameter_group.h"
#include "hostlib/tolvbo32/parameter_tree.h"

namespace krt550 {

CConnectedDrive::CConnectedDrive(std::unique_ptr<CConnection> connection, CCallLog& log,
                                 std::unique_ptr<CRecordWriter> record, std::function<void(const QString&)> complain)
    : m_connection(std::move(connection)), m_record(std::move(record)), m_loggedLink(m_connection->GetLink(), log),
      m_loggedDrive(m_connection->GetDrive(), log, &m_connection->GetLink()),
      m_recording(m_record.get(), m_loggedDrive, m_loggedLink),
      m_lastStop(m_recording.Drive(), m_recording.Link(), complain), m_closing(m_lastStop, complain) {
    m_connection->SetTreeLink(&m_recording.Link());
    m_lastStop.SetWayOfCrash(m_loggedDrive, m_loggedLink);
}

CConnectedDrive::~CConnectedDrive() {
    m_connection->SetTreeLink(nullptr);
}

std::vector<ParameterDescription> CConnectedDrive::Parameters() {
    CParameterGroup* root = nullptr;
    return PlainDrive().GetParameterRoot(&root) && root ? DescriptionsIn(*root) : std::vector<ParameterDescription>();
}

void CConnectedDrive::Begin() {
    m_recording.Begin();
}

bool CConnectedDrive::End() {
    m_recording.End();
    m_connection->SetTreeLink(nullptr);
    return !m_record || !m_record->HasGaps();
}

} // namespace krt550
