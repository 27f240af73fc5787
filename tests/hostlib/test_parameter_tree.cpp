#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "hostlib/tolvbo32/parameter_tree.h"
#include "tests/support/descriptions.h"

namespace krt550 {
namespace {

std::unique_ptr<CParameter> Child(CParameterGroup* group, quint16 reg) {
    return std::make_unique<CParameter>(group, Number(reg, "Parameter"), nullptr);
}

std::unique_ptr<CParameterGroup> Group(CParameterGroup* parent, const char* index) {
    return std::make_unique<CParameterGroup>(parent, QStringLiteral("Group"), QString::fromLatin1(index));
}

TEST(ParameterTree, FindsEveryParameterByItsRegisterText) {
    const auto root =
        BuildParameterTree({Number(9906, "Service mode"), Number(801, "Status"), Number(9900, "First of its group"),
                            Number(102, "Speed"), Number(65535, "Highest")},
                           nullptr);
    ASSERT_EQ(root->GetChildren().size(), 4U) << "one group a group number, in order of appearance";
    EXPECT_EQ(root->GetChildren()[0]->GetIndex().toStdString(), "99");
    for (const char* reg : {"9906", "801", "9900", "102", "65535"}) {
        const CParameter* found = root->FindChildByRegister(QString::fromLatin1(reg));
        ASSERT_TRUE(found) << reg;
        EXPECT_EQ(found->GetRegister(), QString::fromLatin1(reg).toUShort());
        EXPECT_EQ((found->GetParent()->GetIndex() + found->GetIndex()).toStdString(), reg);
    }
    for (const char* reg : {"", "99", "06", "0801", "9907", "9906 "})
        EXPECT_EQ(root->FindChildByRegister(QString::fromLatin1(reg)), nullptr) << reg;
}

TEST(ParameterTree, ChildrenAreKnownAllTheWayUpWheneverTheirGroupsAreAdded) {
    CParameterGroup root(nullptr, QStringLiteral("Drive"), QString());
    auto outer = Group(&root, "900");
    auto inner = Group(outer.get(), "99");
    CParameterGroup* const innerGroup = inner.get();
    outer->Add(std::move(inner));
    innerGroup->Add(Child(innerGroup, 9906));
    EXPECT_EQ(root.FindChildByRegister(QStringLiteral("9906")), nullptr) << "its group does not belong to it yet";
    root.Add(std::move(outer));
    innerGroup->Add(Child(innerGroup, 9907));
    EXPECT_TRUE(root.FindChildByRegister(QStringLiteral("9906")));
    EXPECT_TRUE(root.FindChildByRegister(QStringLiteral("9907")));
    auto givenUp = Group(&root, "20");
    givenUp->Add(Child(givenUp.get(), 2005));
    EXPECT_EQ(givenUp->FindChildByRegister(QStringLiteral("9906")), nullptr) << "a group knows its own only";
    givenUp.reset();
    EXPECT_EQ(root.FindChildByRegister(QStringLiteral("2005")), nullptr);
}

} // namespace
} // namespace krt550
