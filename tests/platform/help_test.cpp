#include "platform/help/contextmap.h"
#include "platform/help/helpwindow.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

#include <gtest/gtest.h>

#include <filesystem>

// The pages are tested where they are written, not in the build's copy.
#ifndef HB_SOURCE_HELP_DIR
#define HB_SOURCE_HELP_DIR (std::filesystem::path(HB_SOURCE_DIR) / "help").string()
#endif

static void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

namespace {

using namespace hb::help;

// Every context number that a window of the program asks for.
const QList<int> kContexts = {2190, 2195, 2197, 2199, 2320, 2380, 2460, 2527, 2550, 2555, 2560, 2565, 2570, 2575};

QString sourceHelpFolder()
{
    return QDir::cleanPath(QString::fromStdString(HB_SOURCE_HELP_DIR));
}

QTextBrowser* browser()
{
    return helpWindow() ? helpWindow()->findChild<QTextBrowser*>(QStringLiteral("HelpBrowser")) : nullptr;
}

QString shownFile()
{
    return QFileInfo(browser()->source().toLocalFile()).fileName();
}

bool hasFirstLevelHeading(const QTextDocument* document)
{
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 1 && !block.text().trimmed().isEmpty())
            return true;
    }
    return false;
}

qsizetype wordCount(const QTextDocument* document)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    return document->toPlainText().split(blanks, Qt::SkipEmptyParts).size();
}

QStringList helpPages()
{
    return QDir(sourceHelpFolder()).entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
}

QString readText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void clickButton(const char* name)
{
    auto* button = helpWindow()->findChild<QPushButton*>(QString::fromLatin1(name));
    ASSERT_NE(button, nullptr) << name;
    QTest::mouseClick(button, Qt::LeftButton);
}

struct MapCase {
    const char* text;
    ContextMap expected;
};

TEST(HelpContextMap, ParsesPairsAndSkipsWhatIsNotAPair)
{
    const MapCase cases[] = {
        {"2190 address-report.html", {{2190, "address-report.html"}}},
        {"  2195\tphone-report.html  \r\n", {{2195, "phone-report.html"}}},
        {"# 2190 comment.html\n\n", {}},
        {"abc page.html", {}},
        {"2190", {}},
        {"2190 a.html extra", {}},
        {"2190 a.html\n2190 b.html", {{2190, "b.html"}}},
        {"2190 a.html\n2460 b.html", {{2190, "a.html"}, {2460, "b.html"}}},
    };
    for (const MapCase& c : cases)
        EXPECT_EQ(parseContextMap(QString::fromLatin1(c.text)), c.expected) << c.text;
}

TEST(HelpContextMap, MissingFileGivesAnEmptyMap)
{
    EXPECT_TRUE(readContextMap(QStringLiteral("/nonexistent/contexts.map")).isEmpty());
}

class HelpTest : public ::testing::Test {
protected:
    void SetUp() override { setHelpFolder(sourceHelpFolder()); }
    void TearDown() override
    {
        if (helpWindow())
            helpWindow()->hide();
    }
};

TEST_F(HelpTest, EveryContextNumberOpensItsOwnPageWithTitleAndProse)
{
    QSet<QString> pages;
    for (int context : kContexts) {
        SCOPED_TRACE(context);
        const QString file = topicFile(context);
        ASSERT_FALSE(file.isEmpty());
        ASSERT_TRUE(showTopic(context));
        EXPECT_EQ(shownFile(), file);
        EXPECT_NE(file, QStringLiteral("index.html"));
        const QTextDocument* document = browser()->document();
        EXPECT_FALSE(document->metaInformation(QTextDocument::DocumentTitle).trimmed().isEmpty());
        EXPECT_TRUE(hasFirstLevelHeading(document));
        EXPECT_GE(wordCount(document), 150);
        pages.insert(file);
    }
    EXPECT_EQ(pages.size(), kContexts.size());
}

TEST_F(HelpTest, UnknownNumbersOpenTheContents)
{
    for (int context : {0, -1, 1234, 2191}) {
        EXPECT_TRUE(topicFile(context).isEmpty()) << context;
        ASSERT_TRUE(showTopic(context));
        EXPECT_EQ(shownFile(), QStringLiteral("index.html")) << context;
    }
}

TEST_F(HelpTest, ContentsOpenInTheOneSharedWindow)
{
    ASSERT_TRUE(showContents());
    QWidget* first = helpWindow();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(shownFile(), QStringLiteral("index.html"));
    EXPECT_EQ(first->objectName(), QStringLiteral("HelpWindow"));
    EXPECT_EQ(first->windowTitle(), QStringLiteral("Quillon Homebook Help"));
    EXPECT_TRUE(first->isVisible());

    ASSERT_TRUE(showTopic(2380));
    EXPECT_EQ(helpWindow(), first);
    int windows = 0;
    for (QWidget* widget : QApplication::topLevelWidgets())
        windows += widget->objectName() == QStringLiteral("HelpWindow") ? 1 : 0;
    EXPECT_EQ(windows, 1);
}

TEST_F(HelpTest, BackForwardAndContentsButtonsMoveThroughThePages)
{
    ASSERT_TRUE(showTopic(2190));
    ASSERT_TRUE(showTopic(2195));
    clickButton("HelpBack");
    EXPECT_EQ(shownFile(), topicFile(2190));
    clickButton("HelpForward");
    EXPECT_EQ(shownFile(), topicFile(2195));
    clickButton("HelpContents");
    EXPECT_EQ(shownFile(), QStringLiteral("index.html"));
}

TEST_F(HelpTest, EveryPageHasATitleAHeadingAndSeveralParagraphs)
{
    ASSERT_TRUE(showContents());
    for (const QString& page : helpPages()) {
        SCOPED_TRACE(page.toStdString());
        browser()->setSource(QUrl::fromLocalFile(QDir(sourceHelpFolder()).filePath(page)));
        const QTextDocument* document = browser()->document();
        EXPECT_FALSE(document->metaInformation(QTextDocument::DocumentTitle).trimmed().isEmpty());
        EXPECT_TRUE(hasFirstLevelHeading(document));
        EXPECT_GE(wordCount(document), 150);
    }
}

TEST_F(HelpTest, EveryLinkInEveryPageResolvesToAFileThatExists)
{
    static const QRegularExpression link(QStringLiteral("(?:href|src)\\s*=\\s*\"([^\"]*)\""));
    const QDir folder(sourceHelpFolder());
    QStringList broken;
    for (const QString& page : helpPages()) {
        const QString html = readText(folder.filePath(page));
        for (auto match = link.globalMatch(html); match.hasNext();) {
            const QString target = match.next().captured(1);
            const QString file = target.section(QLatin1Char('#'), 0, 0);
            if (file.isEmpty() || !QFileInfo(folder.filePath(file)).isFile())
                broken << page + QStringLiteral(" -> ") + target;
        }
    }
    EXPECT_TRUE(broken.isEmpty()) << broken.join(QStringLiteral(", ")).toStdString();
}

TEST_F(HelpTest, ContentsLinkEveryPage)
{
    const QString contents = readText(QDir(sourceHelpFolder()).filePath(QStringLiteral("index.html")));
    for (const QString& page : helpPages()) {
        if (page != QStringLiteral("index.html")) {
            EXPECT_TRUE(contents.contains(QStringLiteral("href=\"%1\"").arg(page))) << page.toStdString();
        }
    }
}

TEST_F(HelpTest, MissingHelpFolderReturnsFalseAndShowsNothing)
{
    if (helpWindow())
        helpWindow()->hide();
    setHelpFolder(QStringLiteral("/nonexistent/help"));
    EXPECT_FALSE(showContents());
    EXPECT_FALSE(showTopic(2190));
    EXPECT_TRUE(topicFile(2190).isEmpty());
    EXPECT_TRUE(helpWindow() == nullptr || !helpWindow()->isVisible());
}

class HelpFolderTest : public HelpTest {
protected:
    void write(const QString& name, const QByteArray& text)
    {
        QFile file(dir.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QTemporaryDir dir;
};

TEST_F(HelpFolderTest, FolderWithoutContentsPageCountsAsMissing)
{
    write(QStringLiteral("contexts.map"), "2190 topic.html\n");
    write(QStringLiteral("topic.html"), "<h1>Topic</h1>");
    setHelpFolder(dir.path());
    EXPECT_EQ(topicFile(2190), QStringLiteral("topic.html"));
    EXPECT_FALSE(showTopic(2190));
}

TEST_F(HelpFolderTest, MappedPageThatIsMissingOpensTheContents)
{
    write(QStringLiteral("index.html"), "<h1>Contents</h1>");
    write(QStringLiteral("contexts.map"), "2190 gone.html\n");
    setHelpFolder(dir.path());
    ASSERT_TRUE(showTopic(2190));
    EXPECT_EQ(shownFile(), QStringLiteral("index.html"));
}

TEST_F(HelpFolderTest, MapIsReadAgainForANewFolder)
{
    write(QStringLiteral("index.html"), "<h1>Contents</h1>");
    write(QStringLiteral("contexts.map"), "2190 own.html\n");
    EXPECT_EQ(topicFile(2190), QStringLiteral("address-report.html"));
    setHelpFolder(dir.path() + QStringLiteral("/./"));
    EXPECT_EQ(helpFolder(), QDir::cleanPath(dir.path()));
    EXPECT_EQ(topicFile(2190), QStringLiteral("own.html"));
}

}  // namespace

// Help asked for from a modal dialog (Options, Page Setup, Import) is read while the dialog waits.
TEST_F(HelpTest, HelpFromAModalDialogIsUsableBesideItAndDoesNotCoverIt)
{
    QDialog dialog;
    dialog.setObjectName(QStringLiteral("ModalDialog"));
    dialog.setGeometry(40, 60, 420, 300);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));

    ASSERT_TRUE(showTopic(2320));
    QWidget* help = helpWindow();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(help));
    EXPECT_FALSE(help->frameGeometry().intersects(dialog.frameGeometry()))
        << "help at " << help->frameGeometry().x() << "," << help->frameGeometry().y();

    // A click on the window, as the desktop delivers it, is not blocked by the dialog's modality.
    auto* contents = help->findChild<QPushButton*>(QStringLiteral("HelpContents"));
    ASSERT_NE(contents, nullptr);
    QTest::mouseClick(help->windowHandle(), Qt::LeftButton, {}, contents->mapTo(help, contents->rect().center()));
    EXPECT_EQ(shownFile(), QStringLiteral("index.html"));
    EXPECT_TRUE(dialog.isVisible());
    dialog.hide();
    help->hide();

    // Without a modal dialog the help is a window like any other again.
    ASSERT_TRUE(showTopic(2320));
    EXPECT_EQ(help->windowHandle()->transientParent(), nullptr);
}
