#include "hostlib/tolvbo32/parameter.h"

#include "hostlib/tolvbo32/parameter_link.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <utility>

namespace krt550 {

CParameter::CParameter(CParameterGroup* parent, ParameterDescription description, CParameterLink* link)
    : CParameterSet(parent, description.name, description.index()), m_description(std::move(description)),
      m_link(link) {}

CParameter::~CParameter() = default;

void CParameter::Rename(const QString& name) {
    m_description.name = name;
    SetName(name);
}

bool CParameter::ReadFromDrive() {
    quint16 word = 0;
    if (!m_link || !m_link->ReadWord(m_description.reg, word))
        return Refuse(QStringLiteral("Reading parameter %1 failed: %2")
                          .arg(m_description.displayName(),
                               m_link ? m_link->LastErrorText() : QStringLiteral("No drive is connected.")));
    m_value = word;
    m_actualValue = word;
    return true;
}

bool CParameter::WriteToDrive(int) {
    if (m_description.readOnly)
        return Refuse(QStringLiteral("Writing parameter %1 failed: it is read-only.").arg(m_description.displayName()));
    if (!m_link || !m_link->WriteWord(m_description.reg, m_value))
        return Refuse(QStringLiteral("Writing parameter %1 failed: %2")
                          .arg(m_description.displayName(),
                               m_link ? m_link->LastErrorText() : QStringLiteral("No drive is connected.")));
    m_actualValue = m_value;
    return true;
}

bool CParameter::SetValue(quint16 word, bool) {
    QString error;
    if (!AcceptsWord(m_description, word, error))
        return Refuse(error);
    m_value = word;
    return true;
}

bool CParameter::SetStringValue(const QString& text) {
    QString error;
    const std::optional<quint16> word = WordOfText(m_description, text, error);
    if (!word)
        return Refuse(error);
    m_value = *word;
    return true;
}

QString CParameter::GetStringValue() const {
    return ShownText(m_description, m_value);
}

QStringList* CParameter::GetValueList() const {
    if (!IsValueList())
        return nullptr;
    auto* texts = new QStringList;
    for (const auto& [value, text] : m_description.values)
        texts->append(text);
    return texts;
}

bool CParameter::Refuse(const QString& error) {
    SetLastError(error);
    return false;
}

} // namespace krt550
