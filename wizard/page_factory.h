#pragma once

namespace krt550 {

/// Tells the wizard sheet which page class stands at which index. May be called again.
void InstallPages();

} // namespace krt550
