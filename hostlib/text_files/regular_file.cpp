#include "hostlib/text_files/regular_file.h"

#include <QFileInfo>

namespace krt550 {

FileProblem OpenRegularFile(QFile& file, qint64 limit) {
    if (!QFileInfo(file.fileName()).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return FileProblem::Unreadable;
    return file.size() > limit ? FileProblem::TooLarge : FileProblem::None;
}

} // namespace krt550
