#include "wizard/params/announcement.h"

#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_link.h"
#include "wizard/params/parameter_access.h"

#include <algorithm>

namespace krt550 {
namespace {

bool g_begun = false;             ///< a scope has announced
CParameterLink* g_link = nullptr; ///< that has an announcement of ours

void Announce(CParameterLink* link, std::span<const quint16> registers) {
    if (g_link && g_link != link)
        g_link->Announce({});
    if (link)
        link->Announce(registers);
    g_link = registers.empty() ? nullptr : link;
}

} // namespace

void AnnounceReads(std::span<CParameter* const> parameters) {
    std::vector<quint16> registers;
    CParameterLink* link = nullptr;
    for (const CParameter* parameter : parameters) {
        if (!parameter || !parameter->GetLink() || (link && parameter->GetLink() != link))
            continue;
        link = parameter->GetLink();
        if (std::ranges::find(registers, parameter->GetRegister()) == registers.end())
            registers.push_back(parameter->GetRegister());
    }
    Announce(link ? link : g_link, registers);
}

Announcement::Announcement(CParameterGroup* root, std::span<const quint16> registers) {
    std::vector<CParameter*> parameters;
    for (const quint16 reg : registers)
        parameters.push_back(root ? FindInTree(root, reg) : nullptr);
    Begin(parameters);
}

Announcement::Announcement(std::span<CParameter* const> parameters) {
    Begin(parameters);
}

void Announcement::Begin(std::span<CParameter* const> parameters) {
    if (g_begun || parameters.empty())
        return;
    g_begun = m_begun = true;
    AnnounceReads(parameters);
}

Announcement::~Announcement() {
    if (!m_begun)
        return;
    g_begun = false;
    AnnounceReads({});
}

} // namespace krt550
