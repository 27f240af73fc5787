#include "wizard/params/read_once.h"

#include "wizard/params/parameter_access.h"

namespace krt550 {

bool CReadOnce::Read(CParameter* parameter) {
    const auto known = m_read.constFind(parameter);
    if (known != m_read.constEnd())
        return *known;
    const bool read = ReadParameter(parameter);
    m_read.insert(parameter, read);
    return read;
}

} // namespace krt550
