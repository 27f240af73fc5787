#include "wizard/diagnosis/fault_record.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "hostlib/tolvcom32/communication_facade.h"
#include "wizard/diagnosis/fault_format.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/resources.h"

namespace krt550 {
namespace {

constexpr quint16 kServiceMode = 9906;
constexpr quint16 kDiagnosis = 911;

CHostDrive* g_drive = nullptr;
CParameter* g_serviceMode = nullptr;
QByteArray g_record;

quint16 FetchRecord() {
    constexpr quint32 kByteCount = 39;
    static const FaultBufferRequest request;
    quint32 header = 0;
    quint32 byteCount = kByteCount;
    g_record.clear();
    return g_drive->ReadFaultBuffer(header, &request, &byteCount, g_record);
}

} // namespace

void SetDiagnosisDrive(CHostDrive* drive) {
    // Parameters are the host's: those of another drive may be gone.
    if (drive != g_drive)
        g_serviceMode = nullptr;
    g_drive = drive;
}

CHostDrive* GetDiagnosisDrive() {
    return g_drive;
}

bool ReadFaultRecord(QString& message) {
    if (!g_drive)
        return false;
    if (CParameterGroup* root = GetParameterRoot(g_drive))
        g_serviceMode = FindParameter(root, kServiceMode);
    if (!g_serviceMode)
        message += MessageFor(kNotFoundMessage, kServiceMode);
    const quint16 error = FetchRecord();
    if (error != 0)
        message += CCommunicationFacade::GetErrorMessage(error, false);
    if (g_serviceMode) {
        g_serviceMode->SetValue(0, false);
        if (!WriteParameter(g_serviceMode))
            return false;
    }
    return error == 0;
}

const QByteArray& GetFaultRecord() {
    return g_record;
}

bool HasActiveFaultCode() {
    constexpr qsizetype kCodeOffset = 14;
    constexpr qsizetype kShortest = 22;
    constexpr quint32 kHighestFault = 3999;
    if (g_record.size() < kShortest)
        return false;
    const quint32 code = BigEndianNumber(g_record.mid(kCodeOffset, 2));
    return code >= 1 && code <= kHighestFault;
}

QString GetUnitText(int unitCode) {
    QString text;
    if (const CSAPDriveTexts* texts = g_drive ? g_drive->GetDriveTexts() : nullptr)
        texts->GetTextForParameterUnit(0, 0, unitCode, text);
    return text;
}

void GetDiagnosisText(CParameterGroup* root, int stringId, QString& text) {
    if (!root)
        return;
    text = LoadText(stringId);
    CParameter* diagnosis = FindInTree(root, kDiagnosis);
    if (diagnosis && ReadParameter(diagnosis))
        text.replace(QLatin1String("REPLACE"), diagnosis->GetStringValue());
}

} // namespace krt550
