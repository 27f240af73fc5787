#include "wizard/texts/help_browser.h"

#include "wizard/texts/help_file.h"
#include "wizard/texts/help_picture.h"
#include "wizard/texts/help_topic.h"

#include <QEvent>

namespace krt550 {
namespace {

constexpr QLatin1String kScheme("help");

/// The palette's link colour, lightened where it would be lost on a dark background.
QColor ReadableLinkColor(const QPalette& palette) {
    constexpr int kMiddle = 128;
    constexpr int kLight = 180;
    const QColor link = palette.color(QPalette::Link);
    const bool lost = palette.color(QPalette::Base).lightness() < kMiddle && link.lightness() < kLight;
    return lost ? QColor::fromHsl(link.hslHue(), link.hslSaturation(), kLight) : link;
}

QString PageOf(const QString& sentence) {
    return QStringLiteral("<p>%1</p>").arg(sentence.toHtmlEscaped());
}

} // namespace

CHelpBrowser::CHelpBrowser(QWidget* parent) : QTextBrowser(parent) {
    setOpenExternalLinks(false);
    document()->setDocumentMargin(fontMetrics().height());
    StyleLinks();
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

void CHelpBrowser::StyleLinks() {
    document()->setDefaultStyleSheet(QStringLiteral("a { color: %1 }").arg(ReadableLinkColor(palette()).name()));
}

void CHelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    StyleLinks();
    if (!source().isEmpty())
        reload();
}

QVariant CHelpBrowser::loadResource(int type, const QUrl& url) {
    const QUrl address = UrlOf({}).resolved(url);
    const QString name = TopicOf(address);
    if (type == QTextDocument::ImageResource)
        return PictureFor(address);
    if (!Holds(address))
        return {};
    if (type == QTextDocument::HtmlResource) {
        m_pixelsLeft = kMostPixels;
        const auto [text, failure] = m_file->ReadTopic(name);
        return failure.isEmpty() ? text : PageOf(failure);
    }
    const QByteArray style = m_file->Read(name, kLargestTopic).content;
    return style.size() > kLargestStyle ? QByteArray() : style;
}

bool CHelpBrowser::Holds(const QUrl& address) const {
    return m_file && address.scheme() == kScheme && m_file->Contains(TopicOf(address));
}

/// Never nothing: the text document would look for the name among this machine's files.
QImage CHelpBrowser::PictureFor(const QUrl& address) {
    const QString name = TopicOf(address);
    if (!Holds(address))
        return PictureOf(QStringLiteral("%1 cannot be shown: the help does not hold it.").arg(name), *this);
    const auto [picture, failure] = ReadHelpPicture(*m_file, name, m_pixelsLeft);
    if (!failure.isEmpty())
        return PictureOf(failure, *this);
    m_pixelsLeft -= qint64{picture.width()} * picture.height();
    return picture;
}

void CHelpBrowser::ShowSentence(const QString& sentence) {
    setHtml(PageOf(sentence));
}

void CHelpBrowser::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
    const QUrl address = UrlOf({}).resolved(url);
    if (Holds(address))
        QTextBrowser::doSetSource(address, type);
}

} // namespace krt550
