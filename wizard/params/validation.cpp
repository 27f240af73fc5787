#include "wizard/params/validation.h"

#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/typed_value.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr int kOutsideLimitsMessage = 4;

struct DataTypeMessage {
    int code;
    int message;
};
constexpr DataTypeMessage kDataTypeMessages[] = {{1, 8}, {2, 9}, {8, 10}};

bool Refuse(const QString& message) {
    ShowMessageBox(message, MessageIcon::Exclamation);
    return false;
}

QString DataTypeText(const CParameter& parameter, double value) {
    const auto* type = std::ranges::find(kDataTypeMessages, parameter.GetDataType(), &DataTypeMessage::code);
    const double shown = std::clamp(value, -2147483648.0, 2147483647.0);
    return LoadText(type->message)
        .replace(QLatin1String("REPLACE_VALUE"), QString::number(static_cast<int>(shown)))
        .replace(QLatin1String("REPLACE_PARAM"), RegisterText(parameter));
}

} // namespace

bool ValidateValueText(const CParameter* parameter, QString& text) {
    if (!parameter)
        return false;
    const QString typed = text;
    if (!parameter->IsValueList())
        text.replace(QLatin1Char(','), QLatin1Char('.'));
    const TypedValue value = CheckTypedText(parameter->GetDescription(), typed);
    switch (value.fault) {
    case TypedFault::None:
        return true;
    case TypedFault::OutsideLimits:
        return Refuse(MessageFor(kOutsideLimitsMessage, parameter->GetRegister()));
    case TypedFault::OutsideDataType:
        return Refuse(DataTypeText(*parameter, value.number));
    case TypedFault::UnknownDataType:
        return Refuse(QStringLiteral("Unknown datatype!"));
    case TypedFault::Form:
        break;
    }
    return Refuse(QStringLiteral("For parameter %1 \"%2\" cannot be used.\n%3")
                      .arg(RegisterText(*parameter), typed.trimmed(), TypedFormHint(parameter->GetResolution())));
}

bool ValidateControlValue(const CParameter* parameter, const QWidget* control) {
    if (!parameter || !control)
        return false;
    QString text = GetControlText(control);
    return ValidateValueText(parameter, text);
}

} // namespace krt550
