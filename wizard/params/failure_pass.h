#pragma once

#include "wizard/platform/message_box.h"

#include <QSet>
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

/// What has been told of the link to the drive while something goes on: a motor's run with its way out and what is said
/// at its end, or an update pass. Within a Scope whatever fails for a reason that was told already, read or written, is
/// not told again, until the drive has answered in between.
class LossMemory {
public:
    /// Scopes may lie in each other; the memory of the outermost one counts.
    class Scope {
    public:
        explicit Scope(LossMemory& memory);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        bool m_isOutermost;
    };

    /// The drive has answered: from now on a loss is another one.
    static void NoteAnswer();
    /// A loss was told in this scope, and the drive has not answered since.
    static bool IsLost();

private:
    friend class FailurePass;
    /// Whether the reason was told already; from now on it was.
    static bool Knows(const QString& reason);

    QSet<QString> m_reasons;
};

} // namespace krt550
