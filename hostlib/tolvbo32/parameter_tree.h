#pragma once

#include "hostlib/export.h"
#include "hostlib/tolvbo32/parameter_description.h"

#include <memory>
#include <vector>

namespace krt550 {

class CParameterGroup;
class CParameterLink;

/// Builds the parameter tree of a drive: a root, one group for each group number, and the parameters below.
/// `link` is borrowed and outlives the tree.
HOSTLIB_EXPORT std::unique_ptr<CParameterGroup> BuildParameterTree(const std::vector<ParameterDescription>& parameters,
                                                                   CParameterLink* link);

/// Descriptions of all parameters below a group, in their order.
HOSTLIB_EXPORT std::vector<ParameterDescription> DescriptionsIn(const CParameterGroup& group);

} // namespace krt550
