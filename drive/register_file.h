#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace krt550 {

/// All parameters of a drive description as raw words, at their defaults to begin with. The drive's inside reads
/// and sets any of them; what comes over the link is checked as a drive checks it.
class CRegisterFile {
public:
    explicit CRegisterFile(std::vector<ParameterDescription> descriptions);

    const std::vector<ParameterDescription>& GetDescriptions() const { return m_descriptions; }
    /// Null when the drive has no such register.
    const ParameterDescription* FindDescription(quint16 reg) const;
    bool Has(quint16 reg) const { return PlaceOf(reg) != kNowhere; }

    /// Raw word, or `fallback` when the drive has no such register.
    quint16 GetWord(quint16 reg, quint16 fallback = 0) const;
    /// Value in shown units, or `fallback` when the drive has no such register.
    double GetNumber(quint16 reg, double fallback) const;
    /// Sets any register, read-only ones too; a register that the drive does not have is passed over.
    void SetWord(quint16 reg, quint16 word);
    /// The same in shown units, held within what the data type can carry.
    void SetNumber(quint16 reg, double shown);

    /// What a parameter is called from now on, and who wants to know of it.
    void Rename(quint16 reg, const QString& name);
    void OnRename(std::function<void(const ParameterDescription&)> listener) { m_onRename = std::move(listener); }

    /// Another number whenever a register that is not read-only has changed.
    quint32 GetSettingsVersion() const { return m_settingsVersion; }

    /// Reads over the link. False for an unknown register, with the reason in `error`; `word` then stays.
    bool ReadFromLink(quint16 reg, quint16& word, QString& error) const;
    /// Writes over the link. False for a register that is unknown or read-only, and for a word outside its limits
    /// or value list, with the reason in `error`; the register then stays.
    bool WriteFromLink(quint16 reg, quint16 word, QString& error);

private:
    static constexpr std::uint32_t kNowhere = ~std::uint32_t{0};

    std::size_t PlaceOf(quint16 reg) const { return reg < m_places.size() ? m_places[reg] : kNowhere; }
    void Store(std::size_t place, quint16 word);

    std::vector<ParameterDescription> m_descriptions;
    std::vector<quint16> m_words;
    std::vector<std::uint32_t> m_places; ///< of the registers, by number: asked many times a step
    quint32 m_settingsVersion = 1;
    std::function<void(const ParameterDescription&)> m_onRename;
};

/// What a drive answers when it is asked for a register that it does not have.
QString UnknownRegisterText(quint16 reg);

} // namespace krt550
