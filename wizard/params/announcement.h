#pragma once

#include <QtGlobal>

#include <span>
#include <vector>

namespace krt550 {

class CParameter;
class CParameterGroup;

/// Tells the link of these parameters (null ones are left out) that they are about to be read; none ends what was
/// announced.
void AnnounceReads(std::span<CParameter* const> parameters);

/// What a window is about to read, announced to the link for the scope's lifetime. A scope inside another one adds
/// nothing: the outer one has announced all of it. Registers that the drive lacks are left out.
class Announcement {
public:
    /// `root` may be null.
    Announcement(CParameterGroup* root, std::span<const quint16> registers);
    /// Null parameters are left out.
    explicit Announcement(std::span<CParameter* const> parameters);
    ~Announcement();
    Announcement(const Announcement&) = delete;
    Announcement& operator=(const Announcement&) = delete;

private:
    void Begin(std::span<CParameter* const> parameters);

    bool m_begun = false; ///< and nobody else has
};

} // namespace krt550
