// The help file, its contents and the viewer.
#include "tests/support/message_boxes.h"
#include "tests/support/print_qt.h"
#include "wizard/texts/context_help.h"
#include "wizard/texts/help_browser.h"
#include "wizard/texts/help_file.h"
#include "wizard/texts/help_viewer.h"
#include "wizard/texts/wizard_directory.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QWindow>

#include <gtest/gtest.h>

namespace krt550 {
namespace {

const QString kFile = QStringLiteral(TEST_HELP_FILE);

QString U(const char* text) {
    return QString::fromUtf8(text);
}

TEST(HelpFileTest, GivesTopicsAndContents) {
    const auto file = CHelpFile::Open(kFile);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->Contains(U("1.htm")));
    EXPECT_TRUE(file->Contains(U("/1.HTM")));
    EXPECT_FALSE(file->Contains(U("3.htm")));
    EXPECT_FALSE(file->Contains(QString()));
    EXPECT_TRUE(file->ReadTopic(U("1.htm")).contains(U("grüße"))) << "the encoding that the topic names";
    EXPECT_TRUE(file->ReadTopic(U("2.htm")).contains(U("é"))) << "no encoding named";
    EXPECT_TRUE(file->Read(U("dot.png")).startsWith("\x89PNG"));
    EXPECT_TRUE(file->Read(U("3.htm")).isEmpty());
    EXPECT_EQ(file->ReadContents(),
              (std::vector<HelpContentsItem>{
                  {U("Start page"), U("default.htm"), 0}, {U("Step 1"), U("1.htm"), 1}, {U("More"), {}, 0}}));
}

TEST(HelpFileTest, RefusesWhatIsNoHelpFile) {
    EXPECT_FALSE(CHelpFile::Open(U("/nowhere/at/all.chm")));
    EXPECT_FALSE(CHelpFile::Open(QString::fromLatin1(__FILE__)));
}

TEST(HelpFileTest, ContentsInAnySpelling) {
    EXPECT_EQ(ParseHelpContents(U("<ul><li><object><PARAM value='a &amp; \"b\" > c' NAME='Name'>"
                                  "<param NAME=\"local\" VALUE=\"1.htm\"/></object></ul><object></object>")),
              (std::vector<HelpContentsItem>{{U("a & \"b\" > c"), U("1.htm"), 0}}));
    EXPECT_TRUE(ParseHelpContents(U("no contents <ul> <param")).empty());
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
    EXPECT_FALSE(Browser().document()->resource(QTextDocument::ImageResource, QUrl(U("dot.png"))).isNull());

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

TEST_F(ContextHelpTest, WhatIsMissingShowsNothingAndIsNotTriedAgain) {
    const QString path = GetWizardDirectory() + U("\\KRT550HelpEnglish.chm");
    EXPECT_EQ(CallHtmlHelp(m_button, path + U("::/gone.htm"), kDisplayTopic, 0), 0U);
    EXPECT_EQ(CallHtmlHelp(m_button, path + U("::/1.htm"), 15, 0), 0U);
    EXPECT_EQ(CallHtmlHelp(m_button, path, kDisplayTopic, 0), 0U);
    EXPECT_FALSE(Viewer());
    EXPECT_NE(CallHtmlHelp(m_button, path + U("::/1.htm"), kDisplayTopic, 0), 0U);

    const QString late = GetWizardDirectory() + U("\\late.chm");
    EXPECT_EQ(CallHtmlHelp(m_button, late + U("::/1.htm"), kDisplayTopic, 0), 0U);
    QFile::copy(kFile, m_directory.filePath(U("late.chm")));
    EXPECT_EQ(CallHtmlHelp(m_button, late + U("::/1.htm"), kDisplayTopic, 0), 0U);
    EXPECT_EQ(CallHtmlHelp(m_button, late + U("::/2.htm"), kDisplayTopic, 0), 0U);
    EXPECT_NE(CallHtmlHelp(m_button, path + U("::/2.htm"), kDisplayTopic, 0), 0U) << "other files are not concerned";
    EXPECT_EQ(Viewer()->windowTitle(), U("Step 2"));
}

} // namespace
} // namespace krt550
