#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

struct chmFile;

namespace krt550 {

/// A line of the help file's table of contents.
struct HelpContentsItem {
    QString title;
    QString topic; ///< empty for a heading
    int level = 0; ///< 0 at the top
    bool operator==(const HelpContentsItem&) const = default;
};

/// A compiled help file.
class CHelpFile {
public:
    /// Opens a file of this machine; null when there is none or it is no help file.
    static std::unique_ptr<CHelpFile> Open(const QString& path);

    /// Whether the file holds a topic or picture ("1.htm"); letter case is ignored.
    bool Contains(const QString& name) const;
    /// Bytes of a topic or picture; empty when there is none.
    QByteArray Read(const QString& name) const;
    /// A topic's text in the encoding it names.
    QString ReadTopic(const QString& name) const;

    /// The table of contents in order; empty when the file has none.
    std::vector<HelpContentsItem> ReadContents() const;

private:
    struct Closer {
        void operator()(chmFile* file) const;
    };
    explicit CHelpFile(chmFile* file) : m_file(file) {}

    std::unique_ptr<chmFile, Closer> m_file;
};

/// Reads the table of contents from the text of a contents file.
std::vector<HelpContentsItem> ParseHelpContents(const QString& text);

} // namespace krt550
