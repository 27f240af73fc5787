#pragma once

#include <QTextBrowser>

#include <memory>

namespace krt550 {

class CHelpFile;

/// Shows the topics of a help file. Links inside the file are followed, links to anywhere else and to what the file
/// does not hold are not. In place of a topic or picture that cannot be shown stands a sentence that says why.
class CHelpBrowser : public QTextBrowser {
    Q_OBJECT

public:
    explicit CHelpBrowser(QWidget* parent);
    ~CHelpBrowser() override;

    void SetFile(std::shared_ptr<const CHelpFile> file);
    /// Shows a sentence in place of a topic.
    void ShowSentence(const QString& sentence);
    /// Name of the topic in front.
    QString GetTopic() const { return TopicOf(source()); }

    /// Address of a topic, and back.
    static QUrl UrlOf(const QString& topic);
    static QString TopicOf(const QUrl& url);

    QVariant loadResource(int type, const QUrl& url) override;

protected:
    void changeEvent(QEvent* event) override;
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;

private:
    void StyleLinks();
    bool Holds(const QUrl& address) const;
    QImage PictureFor(const QUrl& address);

    std::shared_ptr<const CHelpFile> m_file;
    qint64 m_pixelsLeft = 0; ///< what the pictures of the topic in front may still hold
};

} // namespace krt550
