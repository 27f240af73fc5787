#include "hostlib/tolvcom32/communication_facade.h"

#include <QSet>

#include <gtest/gtest.h>

namespace krt550 {
namespace {

TEST(CommunicationFacade, EveryErrorHasItsOwnTextAndSuccessHasNone) {
    EXPECT_TRUE(CCommunicationFacade::GetErrorMessage(0, false).isEmpty());
    EXPECT_TRUE(CCommunicationFacade::GetErrorMessage(0, true).isEmpty());
    QSet<QString> texts;
    for (const quint16 code : std::initializer_list<quint16>{1, 2, 3, 4, 5, 6, 7, 8, 65535}) {
        const QString text = CCommunicationFacade::GetErrorMessage(code, false);
        EXPECT_FALSE(text.isEmpty()) << code;
        texts.insert(text);
        EXPECT_TRUE(CCommunicationFacade::GetErrorMessage(code, true).contains(QString::number(code)));
    }
    EXPECT_EQ(texts.size(), 9);
}

} // namespace
} // namespace krt550
