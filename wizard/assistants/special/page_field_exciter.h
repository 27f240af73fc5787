#pragma once

#include "wizard/shell/row_page.h"

#include <array>

namespace krt550 {

class CColorStatic;

/// The link between the armature converter and an external field exciter: node numbers, and whether it works.
class CPageFieldExciter : public CRowPage {
public:
    CPageFieldExciter();

    bool ApplyParameters() override;
    bool LoadParameters() override;

protected:
    bool BindRows(CParameterGroup* root, QString& errors) override;
    /// What the drive lacks is disabled; nothing is said of it.
    void ReportLoadErrors(const QString&) override {}
    bool StartsUpdate(bool, const QString&) const override { return IsStatusKnown(); }
    void AddUpdate(UpdatePlan& plan) override;
    QWidget* CreateControl(const ControlLayout& control) override;

private:
    /// The link has two words of 16 nodes each, 4.18 and 4.19.
    static constexpr int kNodesAWord = 16;
    enum class LinkStatus { Unknown, Ok, Fault };

    /// Whether the drive has all that the status is made of.
    bool IsStatusKnown() const;
    bool ReadNodes();
    LinkStatus JudgeLink() const;
    void UpdateCommunicationStatus();

    CColorStatic* m_status = nullptr;
    CColorStatic* m_attention = nullptr;
    CParameter* m_detectedType = nullptr; ///< 4.06
    std::array<CParameter*, 2> m_nodes = {};
    bool m_nodesRead = false;
};

} // namespace krt550
