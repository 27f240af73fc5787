// Any bytes as a backup: they are refused with a reason, or what was read can be written and read again.
#include "host/backup/backup_file.h"
#include "host/backup/comparison.h"
#include "host/backup/keeping.h"
#include "hostlib/tolvbo32/drive_description.h"

#include <cstdlib>

namespace krt550 {
namespace {

const std::vector<ParameterDescription>& Parameters() {
    static const std::vector<ParameterDescription> parameters = [] {
        QStringList errors;
        auto read = ReadDriveDescriptionFile(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.parameters"), errors);
        if (!read)
            std::abort();
        return BackedUp(*read);
    }();
    return parameters;
}

void Feed(const QByteArray& bytes) {
    QStringList errors;
    const auto values = ParseBackup(bytes, QStringLiteral("b"), Parameters(), errors);
    if (values.has_value() != errors.isEmpty())
        std::abort();
    if (!values)
        return;
    const QByteArray text = BackupText(*values, Parameters(), {});
    const auto again = ParseBackup(text, QStringLiteral("again"), Parameters(), errors);
    if (!again || !Compare(*values, *again).empty())
        std::abort();
}

} // namespace
} // namespace krt550

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    krt550::Feed(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
