#include "wizard/params/text_source.h"

#include "wizard/texts/wizard_text_store.h"

namespace krt550 {

bool HasValueTexts(TextSource source, quint16 reg) {
    CWizardTextStore& store = CWizardTextStore::Instance();
    return source == TextSource::WizardFile ? store.HasValueTexts(QString::number(reg))
                                            : store.HasConfigurableValueTexts(QString::number(reg));
}

bool FindValueText(TextSource source, quint16 reg, quint16 value, QString& text) {
    CWizardTextStore& store = CWizardTextStore::Instance();
    return source == TextSource::WizardFile ? store.GetValueText(QString::number(reg), value, text)
                                            : store.GetConfigurableValueText(QString::number(reg), value, text);
}

namespace {

QList<ValueText> AllValues(TextSource source, quint16 reg) {
    CWizardTextStore& store = CWizardTextStore::Instance();
    QList<ValueText> values;
    if (source == TextSource::WizardFile)
        store.GetAllValueTexts(QString::number(reg), values);
    else
        store.GetAllConfigurableValueTexts(QString::number(reg), values);
    return values;
}

} // namespace

bool FindValueOfText(TextSource source, quint16 reg, const QString& text, quint16& value) {
    for (const ValueText& entry : AllValues(source, reg))
        if (entry.text == text) {
            value = entry.value;
            return true;
        }
    return false;
}

QStringList AllValueTexts(TextSource source, quint16 reg) {
    QStringList texts;
    for (const ValueText& entry : AllValues(source, reg))
        texts.append(entry.text);
    return texts;
}

} // namespace krt550
