#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

struct mschm_decompressor;
struct mschmd_file;
struct mschmd_header;

namespace krt550 {

class CBookMemory;

/// A line of the help file's table of contents.
struct HelpContentsItem {
    QString title;
    QString topic; ///< empty for a heading
    int level = 0; ///< 0 at the top
    bool operator==(const HelpContentsItem&) const = default;
};

/// Bounds of what is shown [bytes]. The shipped book has 120 kB and topics of up to 16 kB.
inline constexpr qint64 kLargestBook = 64 * 1024 * 1024;
inline constexpr qint64 kLargestTopic = 64 * 1024;
inline constexpr qint64 kLargestPicture = 4 * 1024 * 1024;

/// Text or bytes out of a help file, or a sentence that says why they cannot be shown.
template <class Content> struct HelpContent {
    Content content;
    QString failure; ///< empty when the content is there
};

/// A compiled help file, in memory. It may hold anything: what is damaged, too large or takes more than two seconds to
/// unpack is refused with a sentence for the reader.
class CHelpFile {
public:
    /// Opens a file of this machine. Null when there is none, or with a `failure` when it is no usable help file.
    static std::unique_ptr<CHelpFile> Open(const QString& path, QString& failure);
    /// The same for the bytes of a file.
    static std::unique_ptr<CHelpFile> OpenBytes(const QByteArray& book, QString& failure);
    ~CHelpFile();

    /// Whether the file holds a topic or picture ("1.htm"); letter case is ignored.
    bool Contains(const QString& name) const { return Find(name) != nullptr; }
    QStringList Names() const { return m_files.keys(); }

    HelpContent<QByteArray> Read(const QString& name, qint64 limit) const;
    /// A topic's text in the encoding it names.
    HelpContent<QString> ReadTopic(const QString& name) const;

    /// The table of contents in order; empty when the file has none that can be read.
    std::vector<HelpContentsItem> ReadContents() const;

private:
    explicit CHelpFile(const QByteArray& book);
    bool ReadDirectory();
    bool CanUnpack(const mschmd_file& file) const;
    mschmd_file* Find(const QString& name) const;
    HelpContent<QString> ReadText(const QString& name) const;

    std::unique_ptr<CBookMemory> m_memory;
    mschm_decompressor* m_unpacker = nullptr;
    mschmd_header* m_header = nullptr;
    QMap<QString, mschmd_file*> m_files; ///< by lower-case name without the leading slash
};

/// Reads the table of contents from the text of a contents file: at most 2000 lines of at most 16 levels.
std::vector<HelpContentsItem> ParseHelpContents(const QString& text);

} // namespace krt550
