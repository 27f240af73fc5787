#pragma once

#include "wizard/platform/message_box.h"

#include <QString>

namespace krt550 {

class CParameterSet;

/// One load or one apply of a window. What a drive refuses meanwhile (ShowLastError) is told when the outermost pass
/// ends: each reason in one box, with the names of all parameters that it hit, read or written, so that a lost link is
/// one box and not one a row. Any other box that repeats the text of an earlier one of the pass is not shown again.
class FailurePass {
public:
    FailurePass();
    ~FailurePass();
    FailurePass(const FailurePass&) = delete;
    FailurePass& operator=(const FailurePass&) = delete;

    /// Takes a failure to be told later, or one that was told already (LossMemory); false when it is to be told now.
    static bool Take(const CParameterSet& parameter, const QString& text);

private:
    BoxOnce m_once;
};

/// What has been told of the link to the drive since the drive last answered. Whatever a person does is answered:
/// outside of a Scope every failure is told. Within one, what fails for a reason that was told already, read or
/// written, is not told again.
class LossMemory {
public:
    enum class Since {
        Now,       ///< a person's act that goes on for long: a motor's run with its way out and what is said at its end
        LastAnswer ///< what nobody has just asked for: an update pass, a page read again behind a dialog
    };

    /// Scopes may lie in each other; the outermost one counts.
    class Scope {
    public:
        explicit Scope(Since since);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
    };

    /// The drive has answered: from now on a loss is another one.
    static void NoteAnswer();
    /// A loss was told in a scope, and the drive has not answered since.
    static bool IsLost();

private:
    friend class FailurePass;
    /// Whether the reason was told already and is not to be told again; from now on it was.
    static bool Knows(const QString& reason);
};

} // namespace krt550
