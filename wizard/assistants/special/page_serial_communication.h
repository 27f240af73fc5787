#pragma once

#include "wizard/assistants/special/tab_page_dataset.h"
#include "wizard/assistants/special/tab_page_fieldbus_parameters.h"
#include "wizard/shell/row_page.h"

namespace krt550 {

/// The fieldbus of the drive: its module, the adapter's parameters, and the words exchanged with the PLC.
class CPageSerialCommunication : public CRowPage {
public:
    CPageSerialCommunication();

protected:
    /// Another module has other parameters, which are shown then.
    bool WriteRows() override;

private:
    CTabPageFieldbusParameters m_fieldbus;
    CTabPageDataset m_receive{DatasetDirection::FromPLC};
    CTabPageDataset m_transmit{DatasetDirection::ToPLC};
};

} // namespace krt550
