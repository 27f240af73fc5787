#include "hostlib/tolvbo32/parameter_tree.h"

#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace krt550 {

std::unique_ptr<CParameterGroup> BuildParameterTree(const std::vector<ParameterDescription>& parameters,
                                                    CParameterLink* link) {
    auto root = std::make_unique<CParameterGroup>(nullptr, QStringLiteral("Drive"), QString());
    std::map<int, CParameterGroup*> groups;
    for (const ParameterDescription& parameter : parameters) {
        CParameterGroup*& group = groups[parameter.reg / 100];
        if (!group) {
            auto made = std::make_unique<CParameterGroup>(root.get(), QStringLiteral("Group %1").arg(parameter.group()),
                                                          parameter.group());
            group = made.get();
            root->Add(std::move(made));
        }
        group->Add(std::make_unique<CParameter>(group, parameter, link));
    }
    return root;
}

std::vector<ParameterDescription> DescriptionsIn(const CParameterGroup& group) {
    std::vector<ParameterDescription> found;
    for (const std::unique_ptr<CParameterSet>& child : group.GetChildren()) {
        if (const auto* parameter = dynamic_cast<const CParameter*>(child.get()))
            found.push_back(parameter->GetDescription());
        else if (const auto* below = dynamic_cast<const CParameterGroup*>(child.get()))
            std::ranges::move(DescriptionsIn(*below), std::back_inserter(found));
    }
    return found;
}

} // namespace krt550
