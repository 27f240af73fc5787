#pragma once

namespace krt550 {

/// The whole program krt550sim. Returns the exit status.
int RunServer(int argc, char** argv);

} // namespace krt550
