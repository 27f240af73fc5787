// The help file, its contents and the viewer.
#include "tests/support/message_boxes.h"
#include "wizard/texts/context_help.h"
#include "wizard/texts/help_browser.h"
#include "wizard/texts/help_file.h"
#include "wizard/texts/help_picture.h"
#include "wizard/texts/help_topic.h"
#include "wizard/texts/help_viewer.h"
#include "wizard/texts/wizard_directory.h"

#include <QTest>

namespace krt550 {
namespace {

const QString kFile = QStringLiteral(TEST_HELP_FILE);

QString U(const char* text) {
    return QString::fromUtf8(text);
}

QByteArray BookBytes() {
    QFile file(kFile);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(HelpFileTest, GivesTopicsAndContents) {
    QString failure;
    const auto file = CHelpFile::Open(kFile, failure);
    ASSERT_TRUE(file) << failure.toStdString();
    const struct {
        const char* name;
        const char* part; ///< null: not in the book
    } topics[] = {{"1.htm", "grüße"}, {"/1.HTM", "grüße"}, {"2.htm", "é"}, {"3.htm", nullptr}, {"", nullptr}};
    for (const auto& [name, part] : topics) {
        EXPECT_EQ(file->Contains(U(name)), part != nullptr) << name;
        const auto [text, refusal] = file->ReadTopic(U(name));
        EXPECT_EQ(refusal.isEmpty(), part != nullptr) << name;
        EXPECT_TRUE(text.contains(U(part ? part : ""))) << name;
    }
    EXPECT_EQ(file->ReadContents(),
              (std::vector<HelpContentsItem>{
                  {U("Start page"), U("default.htm"), 0}, {U("Step 1"), U("1.htm"), 1}, {U("More"), {}, 0}}));
}

TEST(HelpFileTest, BoundsAreToldBesideTheName) {
    QString failure;
    const auto file = CHelpFile::Open(kFile, failure);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Read(U("1.htm"), file->Read(U("1.htm"), 1000).content.size()).failure, QString());
    EXPECT_EQ(file->Read(U("1.htm"), 10).failure, U("1.htm cannot be shown: it is larger than 0 kB."));
    EXPECT_TRUE(ReadHelpPicture(*file, U("dot.png"), 6).failure.isEmpty());
    EXPECT_EQ(ReadHelpPicture(*file, U("dot.png"), 5).failure,
              U("dot.png cannot be shown: a topic's pictures may hold 16777216 pixels."));
}

TEST(HelpFileTest, RefusesABookThatIsDamagedOrTooLarge) {
    const QTemporaryDir directory;
    const struct {
        const char* name;
        QByteArray bytes;
        qint64 size; ///< of the file
        const char* failure;
    } cases[] = {
        {"empty.chm", {}, 0, "empty.chm cannot be shown: it is damaged."},
        {"text.chm", "no book", 7, "text.chm cannot be shown: it is damaged."},
        {"short.chm", BookBytes(), BookBytes().size() - 1, "short.chm cannot be shown: it is damaged."},
        {"large.chm", BookBytes(), kLargestBook + 1, "large.chm cannot be shown: it is larger than 64 MB."},
    };
    QString failure;
    for (const auto& test : cases) {
        QFile file(directory.filePath(U(test.name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(test.bytes);
        file.resize(test.size);
        file.close();
        EXPECT_FALSE(CHelpFile::Open(file.fileName(), failure)) << test.name;
        EXPECT_EQ(failure, U(test.failure));
    }
    for (const char* path : {"/nowhere/at/all.chm", "/dev/zero", "/tmp"}) {
        EXPECT_FALSE(CHelpFile::Open(U(path), failure)) << path;
        EXPECT_EQ(failure, QString()) << path;
    }
}

TEST(HelpFileTest, RefusesTopicsWhoseSystemFilesAreMissing) {
    // Without one of them the library would search the index, which may lead round in circles.
    for (const char* name : {"MSCompressed/Content", "ControlData", "SpanInfo", "ResetTable"}) {
        QByteArray bytes = BookBytes();
        const qsizetype at = bytes.indexOf(name);
        ASSERT_GT(at, 0) << name;
        bytes[at] = 'x';
        QString failure;
        const auto file = CHelpFile::OpenBytes(bytes, failure);
        ASSERT_TRUE(file) << name;
        EXPECT_EQ(file->ReadTopic(U("1.htm")).failure, U("1.htm cannot be shown: it is damaged.")) << name;
    }
}

TEST(HelpTopicTest, WhatWouldTakeLongToLayOutIsNotSimple) {
    const QString style = QString(kLargestStyle - 1, u' ');
    const struct {
        QString html;
        bool simple;
    } cases[] = {
        {U("<ul><li><b>x</b></li></ul><p>").repeated(300), true},
        {U("<table><tr><td colspan=8>x</td></tr></table>").repeated(40), true},
        {U("<style>") + style + U("</style>"), true},
        {U("<style>x") + style + U("</style>"), false},
        {U("<b>").repeated(41), false},
        {U("<li>").repeated(41), false},
        {U("<table><tr><td>").repeated(4), false},
        {U("<td rowspan = '9'>"), false},
        {U("<td colspan=99999999999>"), false},
        {U("<td colspan=2>").repeated(41), false},
        {U("<br>").repeated(3001), false},
    };
    for (const auto& test : cases)
        EXPECT_EQ(IsSimpleTopic(test.html), test.simple) << test.html.left(40).toStdString();
}

TEST(HelpFileTest, ContentsInAnySpelling) {
    EXPECT_EQ(ParseHelpContents(U("<ul><li><object><PARAM value='a &amp; \"b\" > c' NAME='Name'>"
                                  "<param NAME=\"local\" VALUE=\"1.htm\"/></object></ul><object></object>")),
              (std::vector<HelpContentsItem>{{U("a & \"b\" > c"), U("1.htm"), 0}}));
    EXPECT_TRUE(ParseHelpContents(U("no contents <ul> <param")).empty());
    const auto many = ParseHelpContents(U("<ul><object><param name='Name' value='x'></object>").repeated(5000));
    EXPECT_EQ(many.size(), 2000U);
    EXPECT_EQ(many.back().level, 15);
    EXPECT_TRUE(ParseHelpContents(U("<ul a=\"").repeated(100'000)).empty()) << "in linear time";
}

class ContextHelpTest : public testing::Test {
protected:
    ContextHelpTest() {
        QFile::copy(kFile, m_directory.filePath(U("KRT550HelpEnglish.chm")));
        SetWizardDirectory(m_directory.path().replace(u'/', u'\\'));
        m_owner.setModal(true);
        m_owner.show();
    }
    ~ContextHelpTest() override { SetWizardDirectory({}); }

    CHelpViewer* Viewer() { return m_owner.findChild<CHelpViewer*>(U("help")); }
    CHelpBrowser& Browser() { return *Viewer()->findChild<CHelpBrowser*>(); }
    void Click(const char* action) {
        const auto* bar = Viewer()->findChild<QToolBar*>();
        const QWidget* button = bar->widgetForAction(Viewer()->findChild<QAction*>(QLatin1String(action)));
        // Through the window, which a modal dialog would block.
        QTest::mouseClick(Viewer()->windowHandle(), Qt::LeftButton, {},
                          button->mapTo(Viewer(), button->rect().center()));
    }

    QTemporaryDir m_directory;
    MessageBoxes m_boxes;
    QDialog m_owner;
    QWidget* m_button = new QWidget(&m_owner);
};

TEST_F(ContextHelpTest, ShowsATopicOverAModalOwnerAndIsUsable) {
    ShowHelp(m_button, U("default.htm"));
    ASSERT_TRUE(Viewer());
    EXPECT_TRUE(Viewer()->isVisible());
    EXPECT_EQ(Viewer()->windowTitle(), U("Start"));
    // A picture that is missing is a sentence; otherwise it would be looked for among this machine's files.
    const auto pictureOf = [this](const char* name) {
        return Browser().document()->resource(QTextDocument::ImageResource, QUrl(U(name))).value<QImage>();
    };
    EXPECT_EQ(pictureOf("dot.png").size(), QSize(3, 2));
    for (const char* name : {"gone.png", "file:///dev/zero", "1.htm"})
        EXPECT_GT(pictureOf(name).width(), 100) << name;

    Browser().setSource(QUrl(U("1.htm")));
    EXPECT_EQ(Viewer()->windowTitle(), U("Step 1"));
    EXPECT_EQ(Viewer()->findChild<QTreeWidget*>()->currentItem()->text(0), U("Step 1"));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(Viewer()));
    const std::pair<const char*, const char*> clicks[] = {
        {"helpBack", "Start"}, {"helpForward", "Step 1"}, {"helpHome", "Start"}};
    for (const auto& [action, title] : clicks) {
        Click(action);
        EXPECT_EQ(Viewer()->windowTitle(), U(title)) << action;
    }
    for (const char* link : {"gone.htm", "http://example.invalid/1.htm", "file:///etc/hostname"}) {
        Browser().setSource(QUrl(U(link)));
        EXPECT_EQ(Browser().GetTopic(), U("default.htm")) << link;
    }
    QTest::keyClick(Viewer(), Qt::Key_Escape);
    EXPECT_FALSE(Viewer()->isVisible());
}

TEST_F(ContextHelpTest, LinksAreReadableOnDarkAndLight) {
    ShowHelp(m_button, U("default.htm"));
    for (const QColor& base : {QColor(Qt::black), QColor(Qt::white), QColor(45, 45, 48)}) {
        QPalette palette(base);
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Link, Qt::blue);
        Browser().setPalette(palette);
        const QTextCursor link = Browser().document()->find(U("Step 1"));
        ASSERT_FALSE(link.isNull());
        const int contrast = link.charFormat().foreground().color().lightness() - base.lightness();
        EXPECT_GT(std::abs(contrast), 100) << base.name().toStdString();
    }
}

TEST_F(ContextHelpTest, OneViewerFollowsItsOwners) {
    ShowHelp(m_button, U("1.htm"));
    const CHelpViewer* const first = Viewer();
    {
        QDialog inner(&m_owner);
        inner.setModal(true);
        inner.show();
        ShowHelp(&inner, U("2.htm#end"));
        EXPECT_EQ(inner.findChild<CHelpViewer*>(), first);
        EXPECT_EQ(first->windowTitle(), U("Step 2"));
        EXPECT_TRUE(first->isVisible());
    }
    ShowHelp(m_button, U("1.htm"));
    ASSERT_TRUE(Viewer()) << "the viewer went with the inner dialog, and a new one is made";
    EXPECT_EQ(Viewer()->windowTitle(), U("Step 1"));
}

TEST_F(ContextHelpTest, ADamagedBookIsToldInTheWindow) {
    QFile book(m_directory.filePath(U("KRT550HelpEnglish.chm")));
    ASSERT_TRUE(book.resize(100));
    for (int press = 0; press < 2; ++press) {
        ShowHelp(m_button, U("1.htm"));
        ASSERT_TRUE(Viewer());
        EXPECT_EQ(Browser().toPlainText(), U("KRT550HelpEnglish.chm cannot be shown: it is damaged."));
        EXPECT_EQ(Viewer()->windowTitle(), U("Help"));
        Viewer()->close();
    }
    book.remove();
    ShowHelp(m_button, U("1.htm"));
    EXPECT_TRUE(Viewer()->isVisible()) << "it is not opened again";
    QFile::copy(kFile, m_directory.filePath(U("other.chm")));
    CallHtmlHelp(m_button, GetWizardDirectory() + U("\\other.chm::/1.htm"), kDisplayTopic, 0);
    EXPECT_EQ(Viewer()->windowTitle(), U("Step 1"));
}

TEST_F(ContextHelpTest, WhatIsMissingShowsNothingAndIsNotTriedAgain) {
    const QString book = GetWizardDirectory() + U("\\KRT550HelpEnglish.chm");
    const QString late = GetWizardDirectory() + U("\\late.chm");
    for (const QString& path : {book + U("::/gone.htm"), book, late + U("::/1.htm")})
        EXPECT_EQ(CallHtmlHelp(m_button, path, kDisplayTopic, 0), 0U) << path.toStdString();
    EXPECT_EQ(CallHtmlHelp(m_button, book + U("::/1.htm"), 15, 0), 0U) << "no such command";
    EXPECT_FALSE(Viewer());
    QFile::copy(kFile, m_directory.filePath(U("late.chm")));
    EXPECT_EQ(CallHtmlHelp(m_button, late + U("::/1.htm"), kDisplayTopic, 0), 0U);
    EXPECT_NE(CallHtmlHelp(m_button, book + U("::/2.htm"), kDisplayTopic, 0), 0U) << "other files are not concerned";
    EXPECT_EQ(Viewer()->windowTitle(), U("Step 2"));
}

} // namespace
} // namespace krt550
