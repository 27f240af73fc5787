#pragma once

#include "wizard/platform/message_box.h"

#include <QString>

namespace krt550 {

class CParameterSet;

/// One load or one apply of a window. What a drive refuses meanwhile (ShowLastError) is told when the outermost pass
/// ends: each cause in one box, with the names of all parameters that it hit, so that a lost link is one box and not
/// one a row. Any other box that repeats the text of an earlier one of the pass is not shown again.
class FailurePass {
public:
    FailurePass();
    ~FailurePass();
    FailurePass(const FailurePass&) = delete;
    FailurePass& operator=(const FailurePass&) = delete;

    /// Takes a failure to be told later; false when no pass is on.
    static bool Take(const CParameterSet& parameter, const QString& text);

private:
    BoxOnce m_once;
};

} // namespace krt550
