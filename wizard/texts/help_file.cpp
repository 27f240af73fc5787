#include "wizard/texts/help_file.h"

#include "hostlib/text_files/regular_file.h"
#include "hostlib/text_files/text_fields.h"
#include "wizard/texts/book_memory.h"
#include "wizard/texts/help_topic.h"

#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>

namespace krt550 {
namespace {

QString KeyOf(const QString& name) {
    return (name.startsWith(u'/') ? name.mid(1) : name).toLower();
}

QString Refusal(const QString& name, const QString& why) {
    return QStringLiteral("%1 cannot be shown: %2.").arg(name, why);
}

QString TooLarge(const QString& name, qint64 limit) {
    constexpr qint64 kMegabyte = 1024 * 1024;
    const bool large = limit >= kMegabyte;
    return Refusal(name, QStringLiteral("it is larger than %1 %2")
                             .arg(limit / (large ? kMegabyte : kMegabyte / 1024))
                             .arg(large ? QLatin1String("MB") : QLatin1String("kB")));
}

QString Damaged(const QString& name) {
    return Refusal(name, QStringLiteral("it is damaged"));
}

/// Some compilers write the first of the header's two identifiers twice, and libmspack insists on the second. Nothing
/// else depends on them.
QByteArray WithIdentifiers(QByteArray book) {
    constexpr qsizetype kAt = 0x18;
    constexpr char kIdentifiers[] = "\x10\xFD\x01\x7C\xAA\x7B\xD0\x11\x9E\x0C\x00\xA0\xC9\x22\xE6\xEC"
                                    "\x11\xFD\x01\x7C\xAA\x7B\xD0\x11\x9E\x0C\x00\xA0\xC9\x22\xE6\xEC";
    constexpr qsizetype kSize = sizeof kIdentifiers - 1;
    return book.size() < kAt + kSize ? book : book.replace(kAt, kSize, kIdentifiers, kSize);
}

} // namespace

CHelpFile::CHelpFile(const QByteArray& book) : m_memory(std::make_unique<CBookMemory>(WithIdentifiers(book))) {}

CHelpFile::~CHelpFile() {
    if (m_header)
        m_unpacker->close(m_unpacker, m_header);
    mspack_destroy_chm_decompressor(m_unpacker);
}

std::unique_ptr<CHelpFile> CHelpFile::Open(const QString& path, QString& failure) {
    failure.clear();
    QFile file(path);
    const QString name = QFileInfo(path).fileName();
    const FileProblem problem = OpenRegularFile(file, kLargestBook);
    if (problem == FileProblem::TooLarge)
        failure = TooLarge(name, kLargestBook);
    if (problem != FileProblem::None)
        return nullptr;
    std::unique_ptr<CHelpFile> book = OpenBytes(file.read(kLargestBook), failure);
    if (!book)
        failure = Damaged(name);
    return book;
}

std::unique_ptr<CHelpFile> CHelpFile::OpenBytes(const QByteArray& bytes, QString& failure) {
    std::unique_ptr<CHelpFile> book(new CHelpFile(bytes));
    const bool usable = book->ReadDirectory();
    failure = usable ? QString() : Damaged(QStringLiteral("The help"));
    return usable ? std::move(book) : nullptr;
}

bool CHelpFile::ReadDirectory() {
    m_memory->BeginRequest(0);
    m_unpacker = mspack_create_chm_decompressor(m_memory.get());
    m_header = m_unpacker ? m_unpacker->open(m_unpacker, "") : nullptr;
    // The library goes by the length that the file states.
    if (!m_header || m_header->length > m_memory->GetSize())
        return false;
    for (mschmd_file* file = m_header->files; file; file = file->next) {
        const QString key = KeyOf(QString::fromUtf8(file->filename));
        if (!m_files.contains(key))
            m_files.insert(key, file);
    }
    return true;
}

mschmd_file* CHelpFile::Find(const QString& name) const {
    return m_files.value(KeyOf(name));
}

/// What the library takes on trust: places inside the file, and the four system files without which it searches the
/// index, whose entries may lead round in circles. Unpacking starts at the beginning of the compressed section at
/// worst, which is why the section must be small too.
bool CHelpFile::CanUnpack(const mschmd_file& file) const {
    const auto lies = [](const mschmd_file* entry, qint64 limit) {
        return entry && entry->offset >= 0 && entry->length >= 0 && entry->offset <= limit &&
               entry->length <= limit - entry->offset;
    };
    if (!lies(&file, kLargestBook))
        return false;
    const mschmd_sec_mscompressed& packed = m_header->sec1;
    const mschmd_file* const system[] = {packed.content, packed.control, packed.rtable, packed.spaninfo};
    return file.section->id == 0 ||
           std::ranges::all_of(system, [&](const mschmd_file* entry) { return lies(entry, m_memory->GetSize()); });
}

HelpContent<QByteArray> CHelpFile::Read(const QString& name, qint64 limit) const {
    mschmd_file* const file = Find(name);
    if (!file)
        return {{}, Refusal(name, QStringLiteral("the help does not hold it"))};
    if (file->length > limit)
        return {{}, TooLarge(name, limit)};
    if (!CanUnpack(*file))
        return {{}, Damaged(name)};
    m_memory->BeginRequest(limit);
    const int error = m_unpacker->extract(m_unpacker, file, "");
    QByteArray bytes = m_memory->TakeOutput();
    if (m_memory->HasTimedOut())
        return {{}, Refusal(name, QStringLiteral("it takes too long to unpack"))};
    if (error != MSPACK_ERR_OK || bytes.size() != file->length)
        return {{}, Damaged(name)};
    return {std::move(bytes), {}};
}

HelpContent<QString> CHelpFile::ReadText(const QString& name) const {
    const auto [bytes, failure] = Read(name, kLargestTopic);
    QStringDecoder decoder = QStringDecoder::decoderForHtml(bytes);
    if (decoder.isValid() && decoder.name() && qstricmp(decoder.name(), "UTF-8") != 0)
        return {decoder(bytes), failure};
    return {TextOfField({bytes.constData(), static_cast<std::size_t>(bytes.size())}), failure};
}

HelpContent<QString> CHelpFile::ReadTopic(const QString& name) const {
    HelpContent<QString> topic = ReadText(name);
    if (IsSimpleTopic(topic.content))
        return topic;
    return {{}, Refusal(name, QStringLiteral("it is too complicated"))};
}

std::vector<HelpContentsItem> CHelpFile::ReadContents() const {
    for (const QString& name : m_files.keys())
        if (name.endsWith(u".hhc"))
            return ParseHelpContents(ReadText(name).content);
    return {};
}

} // namespace krt550
