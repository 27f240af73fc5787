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

std::vector<std::pair<quint16, QString>> AllValueTexts(TextSource source, const QString& registerText) {
    CWizardTextStore& store = CWizardTextStore::Instance();
    std::vector<std::pair<quint16, QString>> texts;
    if (source == TextSource::WizardFile)
        store.GetAllValueTexts(registerText, texts);
    else
        store.GetAllConfigurableValueTexts(registerText, texts);
    return texts;
}

} // namespace krt550
