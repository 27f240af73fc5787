#include "wizard/diagnosis/diagnosis_dialog.h"

#include "wizard/diagnosis/fault_format.h"
#include "wizard/diagnosis/fault_record.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/push_button.h"
#include "wizard/platform/resources.h"
#include "wizard/texts/context_help.h"

namespace krt550 {
namespace {

constexpr int kHelpButton = 93;
constexpr int kCompleteRecord = 10;
constexpr int kShortRecord = 3;
constexpr int kFieldsMissingMessage = 373;
constexpr int kShortRecordMessage = 374;
constexpr int kPlainDiagnosis = 571;

/// One field of the record: value, tag (2 bytes, 0 = no value), data type, unit code.
struct FaultField {
    int label;
    int labelString;
    int value;
    int unit;
    qsizetype offset;
    qsizetype size; ///< of the value
    bool isDiagnosis = false;
};

constexpr FaultField kFields[] = {
    {582, 362, 434, 375, 6, 4},  {580, 569, 427, 584, 14, 2},       {581, 570, 428, 585, 20, 2},
    {340, 363, 436, 382, 26, 2}, {562, 364, 442, 388, 32, 2},       {348, 365, 445, 395, 38, 2},
    {566, 566, 449, 402, 44, 2}, {356, 366, 453, 409, 50, 2},       {569, 367, 458, 413, 56, 2},
    {361, 567, 462, 417, 62, 2}, {572, 568, 464, 422, 68, 2, true},
};

QString CurrentDiagnosis() {
    QString text;
    GetDiagnosisText(GetParameterRoot(GetDiagnosisDrive()), kPlainDiagnosis, text);
    return text;
}

/// Fills one row; false when the record ends before the field does.
bool ShowFaultField(CWindow& window, const FaultField& field, const QByteArray& record) {
    const qsizetype end = field.offset + field.size;
    if (record.size() < end + 2)
        return false;
    SetControlTextFromString(window.GetDlgItem(field.label), field.labelString);
    QWidget* value = window.GetDlgItem(field.value);
    QWidget* unit = window.GetDlgItem(field.unit);
    if (BigEndianNumber(record.mid(end, 2)) == 0 && !field.isDiagnosis) {
        SetControlText(value, QStringLiteral("-"));
        SetControlText(unit, QStringLiteral("-"));
        return true;
    }
    if (record.size() < end + 4)
        return false;
    const int dataType = static_cast<quint8>(record[end + 2]);
    const int unitCode = static_cast<quint8>(record[end + 3]);
    SetControlText(value, field.isDiagnosis ? CurrentDiagnosis()
                                            : FormatFaultValue(dataType, record.mid(field.offset, field.size)));
    SetControlText(unit, GetUnitText(unitCode));
    return true;
}

} // namespace

CDiagnosisDialog::CDiagnosisDialog() : CDialog(122) {
    Handle(kHelpButton, ControlEvent::Clicked, [this] { ShowHelp(window(), QStringLiteral("diag.htm")); });
    PressByKey(*this, QKeySequence::HelpContents, kHelpButton);
}

bool CDiagnosisDialog::OnInitDialog() {
    const QByteArray& record = GetFaultRecord();
    if (record.isEmpty())
        return true;
    const int state = static_cast<quint8>(record[0]);
    if (state != kCompleteRecord)
        ShowMessageBox(LoadText(state == kShortRecord ? kShortRecordMessage : kFieldsMissingMessage),
                       MessageIcon::None);
    for (const FaultField& field : kFields)
        if (!ShowFaultField(*this, field, record))
            break;
    return true;
}

} // namespace krt550
