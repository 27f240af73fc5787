#pragma once

#include <QString>
#include <QtGlobal>

#include <map>

namespace krt550 {

class CRegisterFile;

/// Fieldbus adapters by their numbers in 51.01.
enum class AdapterType : quint16 { None, Profibus, CanOpen, DeviceNet, ControlNet, Ethernet, Profinet };

/// "none, profibus, canopen, ...", as an option names them.
QString AdapterNames();
/// False for a name that is none.
bool FindAdapter(const QString& name, AdapterType& type);

/// What the fieldbus carries at a time: the first word of the datasets (0 to 11) and how many, either way.
struct Telegram {
    int first = 0;
    int toDrive = 0;
    int fromDrive = 0;
};

/// The slot for the fieldbus adapter. Which adapter is in it decides what 51.01 shows and what 51.02 to 51.28 are for:
/// those that an adapter has no use for are called "Fieldbus parameter N".
class CFieldbusAdapter {
public:
    void SetMounted(AdapterType type) { m_mounted = type; }
    /// Shows the adapter, which the drive looks for while 98.02 asks for one.
    void Read(CRegisterFile& registers);
    /// What it carries; nothing without an adapter or with 98.02 = 0.
    const Telegram& GetTelegram() const { return m_telegram; }
    bool IsInUse() const { return m_telegram.toDrive > 0; }

private:
    void NameParameters(AdapterType type, CRegisterFile& registers);

    AdapterType m_mounted = AdapterType::Profibus;
    std::map<quint16, QString> m_names; ///< of the adapter's parameters, as described
    Telegram m_telegram;
};

} // namespace krt550
