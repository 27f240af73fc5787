#include "wizard/texts/help_file.h"

#include "wizard/texts/text_fields.h"

#include <QFile>
#include <QStringDecoder>

#include <chm_lib.h>

namespace krt550 {
namespace {

QByteArray ObjectPath(const QString& name) {
    return name.startsWith(u'/') ? name.toUtf8() : '/' + name.toUtf8();
}

int FindContents(chmFile*, chmUnitInfo* unit, void* found) {
    const QString path = QString::fromUtf8(unit->path);
    if (!path.endsWith(QLatin1String(".hhc"), Qt::CaseInsensitive))
        return CHM_ENUMERATOR_CONTINUE;
    *static_cast<QString*>(found) = path;
    return CHM_ENUMERATOR_SUCCESS;
}

} // namespace

void CHelpFile::Closer::operator()(chmFile* file) const {
    chm_close(file);
}

std::unique_ptr<CHelpFile> CHelpFile::Open(const QString& path) {
    chmFile* file = chm_open(QFile::encodeName(path).constData());
    return std::unique_ptr<CHelpFile>(file ? new CHelpFile(file) : nullptr);
}

bool CHelpFile::Contains(const QString& name) const {
    chmUnitInfo unit{};
    return !name.isEmpty() &&
           chm_resolve_object(m_file.get(), ObjectPath(name).constData(), &unit) == CHM_RESOLVE_SUCCESS;
}

QByteArray CHelpFile::Read(const QString& name) const {
    constexpr quint64 kLargest = 64 * 1024 * 1024; // beyond that the file is damaged
    chmUnitInfo unit{};
    if (chm_resolve_object(m_file.get(), ObjectPath(name).constData(), &unit) != CHM_RESOLVE_SUCCESS ||
        unit.length > kLargest)
        return {};
    QByteArray bytes(static_cast<qsizetype>(unit.length), '\0');
    const auto got = chm_retrieve_object(m_file.get(), &unit, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                                         static_cast<LONGINT64>(unit.length));
    bytes.truncate(static_cast<qsizetype>(std::max<LONGINT64>(got, 0)));
    return bytes;
}

QString CHelpFile::ReadTopic(const QString& name) const {
    const QByteArray bytes = Read(name);
    QStringDecoder decoder = QStringDecoder::decoderForHtml(bytes);
    if (decoder.isValid() && decoder.name() && qstricmp(decoder.name(), "UTF-8") != 0)
        return decoder(bytes);
    return TextOfField({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

std::vector<HelpContentsItem> CHelpFile::ReadContents() const {
    QString path;
    chm_enumerate(m_file.get(), CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES, FindContents, &path);
    return path.isEmpty() ? std::vector<HelpContentsItem>() : ParseHelpContents(ReadTopic(path));
}

} // namespace krt550
