#pragma once

#include <QTextBrowser>

#include <memory>

namespace krt550 {

class CHelpFile;

/// Shows the topics of a help file. Links inside the file are followed, links to anywhere else and to what the file
/// does not hold are not.
class CHelpBrowser : public QTextBrowser {
    Q_OBJECT

public:
    explicit CHelpBrowser(QWidget* parent);
    ~CHelpBrowser() override;

    void SetFile(std::shared_ptr<const CHelpFile> file);
    /// Name of the topic in front.
    QString GetTopic() const { return TopicOf(source()); }

    /// Address of a topic, and back.
    static QUrl UrlOf(const QString& topic);
    static QString TopicOf(const QUrl& url);

    QVariant loadResource(int type, const QUrl& url) override;

protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;

private:
    std::shared_ptr<const CHelpFile> m_file;
};

} // namespace krt550
