#include "hostlib/tolvbo32/parameter_tree.h"

#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"

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

} // namespace krt550
