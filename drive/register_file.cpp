#include "drive/register_file.h"

#include "hostlib/tolvbo32/value_codec.h"

#include <utility>

namespace krt550 {

CRegisterFile::CRegisterFile(std::vector<ParameterDescription> descriptions)
    : m_descriptions(std::move(descriptions)), m_words(m_descriptions.size()) {
    for (std::size_t i = 0; i < m_descriptions.size(); ++i) {
        const std::size_t reg = m_descriptions[i].reg;
        if (reg >= m_places.size())
            m_places.resize(reg + 1, kNowhere);
        m_places[reg] = static_cast<std::uint32_t>(i);
        m_words[i] = NearestWord(m_descriptions[i], m_descriptions[i].defaultValue);
    }
}

const ParameterDescription* CRegisterFile::FindDescription(quint16 reg) const {
    const std::size_t place = PlaceOf(reg);
    return place == kNowhere ? nullptr : &m_descriptions[place];
}

quint16 CRegisterFile::GetWord(quint16 reg, quint16 fallback) const {
    const std::size_t place = PlaceOf(reg);
    return place == kNowhere ? fallback : m_words[place];
}

double CRegisterFile::GetNumber(quint16 reg, double fallback) const {
    const std::size_t place = PlaceOf(reg);
    return place == kNowhere ? fallback : ShownNumber(m_descriptions[place], m_words[place]);
}

void CRegisterFile::SetWord(quint16 reg, quint16 word) {
    const std::size_t place = PlaceOf(reg);
    if (place != kNowhere)
        Store(place, word);
}

void CRegisterFile::Store(std::size_t place, quint16 word) {
    if (std::exchange(m_words[place], word) != word && !m_descriptions[place].readOnly)
        ++m_settingsVersion;
}

void CRegisterFile::SetNumber(quint16 reg, double shown) {
    const std::size_t place = PlaceOf(reg);
    if (place != kNowhere)
        Store(place, NearestWord(m_descriptions[place], shown));
}

void CRegisterFile::Rename(quint16 reg, const QString& name) {
    const std::size_t place = PlaceOf(reg);
    if (place == kNowhere || m_descriptions[place].name == name)
        return;
    m_descriptions[place].name = name;
    if (m_onRename)
        m_onRename(m_descriptions[place]);
}

bool CRegisterFile::ReadFromLink(quint16 reg, quint16& word, QString& error) const {
    if (!Has(reg)) {
        error = UnknownRegisterText(reg);
        return false;
    }
    word = GetWord(reg);
    return true;
}

bool CRegisterFile::WriteFromLink(quint16 reg, quint16 word, QString& error) {
    const ParameterDescription* description = FindDescription(reg);
    if (!description) {
        error = UnknownRegisterText(reg);
        return false;
    }
    if (description->readOnly) {
        error =
            QStringLiteral("The drive refused the value: parameter %1 is read-only.").arg(description->displayName());
        return false;
    }
    if (!AcceptsWord(*description, word, error))
        return false;
    SetWord(reg, word);
    return true;
}

QString UnknownRegisterText(quint16 reg) {
    return QStringLiteral("The drive has no parameter %1.%2.")
        .arg(QString::number(reg / 100), QStringLiteral("%1").arg(reg % 100, 2, 10, QLatin1Char('0')));
}

} // namespace krt550
