#pragma once

#include "wizard/platform/property_sheet.h"

#include <array>
#include <functional>
#include <span>

namespace krt550 {

class CHostDrive;
class CParameterGroup;
class CWizardPropertyPage;

inline constexpr int kPageCount = 17;
inline constexpr int kWizardClosed = 8; ///< result of the sheet, and code of EndWizard

/// Makes the page of an index (0 to 16).
using PageFactory = std::function<std::unique_ptr<CWizardPropertyPage>(int index)>;

/// Says which page classes the sheets made from now on have.
void SetPageFactory(PageFactory factory);

/// The one modal window of a wizard run: owns the pages, hands them the drive, links them into chains.
class CSheetWizard : public CPropertySheet {
    Q_OBJECT

public:
    CSheetWizard(int captionString, QWidget* parent, int firstPage);
    ~CSheetWizard() override;

    /// Stores the drive (borrowed), then creates, titles and adds the pages. Once, before the sheet is shown.
    void SetDriveObject(CHostDrive* drive);
    CHostDrive* GetDriveObject() const { return m_drive; }

    /// Links start page, steps 1 to 7 and end.
    void StartBasicCommissioning();
    /// Links the start page and the pages of these indexes (1 to 16), in this order.
    void SetAssistantChain(std::span<const quint16> pages);
    /// Code 8 ends the modal sheet with result 8, any other shows the start page. Does nothing while the sheet closes.
    void EndWizard(int code);

    CWizardPropertyPage* GetWizardPage(int index) const;

protected:
    /// While a motor is under the wizard's control Escape does what Cancel does, and the close button stops it at once.
    /// Otherwise whoever has typed something and not applied it is asked first.
    void OnPersonCloses(CloseWay way) override;
    void OnClosing() override;

private:
    std::array<std::unique_ptr<CWizardPropertyPage>, kPageCount> m_pages;
    CHostDrive* m_drive = nullptr;
};

/// Parameter root of the sheet's drive; null without sheet, drive or root.
CParameterGroup* GetPageParameterRoot(const CSheetWizard* sheet);

} // namespace krt550
