#pragma once

#include "host/trends/trend_door.h"

#include <QLabel>
#include <QVBoxLayout>

namespace krt550 {

/// Stands where the trends would, when their part cannot be loaded, and says why. What was saved of them stays saved.
class CNoTrends : public CTrendDoor {
public:
    explicit CNoTrends(const QString& reason) {
        auto* text = new QLabel(QStringLiteral("There are no trends: %1").arg(reason));
        text->setTextFormat(Qt::PlainText);
        text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        text->setWordWrap(true);
        text->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        (new QVBoxLayout(this))->addWidget(text);
    }

    void SetDrive(CParameterLink*, std::vector<ParameterDescription>) override {}
    void SetShared(bool) override {}
    void SaveState(QSettings&) const override {}
    void RestoreState(QSettings&) override {}
};

} // namespace krt550
