#include "wizard/texts/help_browser.h"

#include "wizard/texts/help_file.h"

namespace krt550 {
namespace {

constexpr QLatin1String kScheme("help");

} // namespace

CHelpBrowser::CHelpBrowser(QWidget* parent) : QTextBrowser(parent) {
    setOpenExternalLinks(false);
    document()->setDocumentMargin(fontMetrics().height());
}

CHelpBrowser::~CHelpBrowser() = default;

void CHelpBrowser::SetFile(std::shared_ptr<const CHelpFile> file) {
    m_file = std::move(file);
}

QString CHelpBrowser::TopicOf(const QUrl& url) {
    const QString path = url.path();
    return path.startsWith(u'/') ? path.mid(1) : path;
}

QUrl CHelpBrowser::UrlOf(const QString& topic) {
    const qsizetype hash = topic.indexOf(u'#');
    QUrl url;
    url.setScheme(QString(kScheme));
    url.setPath(u'/' + topic.left(hash));
    if (hash >= 0)
        url.setFragment(topic.mid(hash + 1));
    return url;
}

QVariant CHelpBrowser::loadResource(int type, const QUrl& url) {
    const QUrl address = UrlOf({}).resolved(url);
    if (!m_file || address.scheme() != kScheme || !m_file->Contains(TopicOf(address)))
        return {};
    if (type == QTextDocument::HtmlResource)
        return m_file->ReadTopic(TopicOf(address));
    return m_file->Read(TopicOf(address));
}

void CHelpBrowser::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
    const QUrl address = UrlOf({}).resolved(url);
    if (m_file && address.scheme() == kScheme && m_file->Contains(TopicOf(address)))
        QTextBrowser::doSetSource(address, type);
}

} // namespace krt550
