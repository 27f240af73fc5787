#include "wizard/params/text_source.h"

#include "wizard/texts/wizard_text_store.h"

namespace krt550 {

bool HasValueTexts(TextSource source, const QString& registerText) {
    CWizardTextStore& store = CWizardTextStore::Instance();
    return source == TextSource::WizardFile ? store.HasValueTexts(registerText)
                                            : store.HasConfigurableValueTexts(registerText);
}

bool FindValueText(TextSource source, const QString& registerText, quint16 value, QString& text) {
    CWizardTextStore& store = CWizardTextStore::Instance();
    return source == TextSource::WizardFile ? store.GetValueText(registerText, value, text)
                                            : store.GetConfigurableValueText(registerText, value, text);
}

QStringList AllValueTexts(TextSource source, const QString& registerText) {
    CWizardTextStore& store = CWizardTextStore::Instance();
    QList<ValueText> values;
    if (source == TextSource::WizardFile)
        store.GetAllValueTexts(registerText, values);
    else
        store.GetAllConfigurableValueTexts(registerText, values);
    QStringList texts;
    for (const ValueText& value : values)
        texts.append(value.text);
    return texts;
}

} // namespace krt550
