#pragma once

/// Marks what the host libraries offer; everything else stays hidden.
#define HOSTLIB_EXPORT __attribute__((visibility("default")))
