#pragma once

namespace krt550 {

/// While it lives, what would end the program (Ctrl+C, a closed terminal, a request to terminate) is only noted: a
/// command looks at it between two calls of the drive and ends in good order. Nor does a reader that has gone end it.
class CInterruption {
public:
    CInterruption();
    ~CInterruption();
    CInterruption(const CInterruption&) = delete;
    CInterruption& operator=(const CInterruption&) = delete;

    bool HasCome() const;
};

} // namespace krt550
