#pragma once

#include "tests/support/message_boxes.h"
#include "wizard/texts/wizard_directory.h"
#include "wizard/texts/wizard_text_store.h"

namespace krt550 {

inline QString U(const char* text) {
    return QString::fromUtf8(text);
}

/// A store of its own over files of its own; nobody expects a message box.
class TextFixture : public testing::Test {
protected:
    TextFixture() { SetWizardDirectory(m_directory.path()); }
    ~TextFixture() override { SetWizardDirectory({}); }

    void Write(const QString& name, const QByteArray& content) {
        QFile file(m_directory.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    void WriteWizardTexts(const QByteArray& content) { Write(QStringLiteral("Wzkrt550.txt"), content); }
    void WriteConfigurable(const QByteArray& content) {
        Write(QStringLiteral("KRT550ConfigurableAssistant.txt"), content);
    }

    QTemporaryDir m_directory;
    MessageBoxes m_boxes;
    CWizardTextStore m_store;
};

} // namespace krt550
