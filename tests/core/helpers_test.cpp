#include "helpfolder.h"
#include "programfixture.h"
#include "windowdriver.h"

#include "core/formdebug.h"
#include "core/helpers.h"
#include "core/routes.h"
#include "core/session.h"
#include "core/setup.h"

#include <QPlainTextEdit>
#include <QTabWidget>
#include <QToolBar>

using namespace hb;

TEST(HelperNames, DaysAndMonthsByNumber)
{
    const char* const days[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    for (int day = 1; day <= 7; ++day)
        EXPECT_EQ(DayName(day), QString::fromLatin1(days[day - 1]));
    EXPECT_EQ(DayName(0), QString());
    EXPECT_EQ(DayName(8), QString());

    EXPECT_EQ(MonthName(1), QStringLiteral("January"));
    EXPECT_EQ(MonthName(9), QStringLiteral("September"));
    EXPECT_EQ(MonthName(12), QStringLiteral("December"));
    EXPECT_EQ(MonthName(0), QStringLiteral("No Month"));
    EXPECT_EQ(MonthName(13), QStringLiteral("No Month"));
}

TEST(HelperNames, OrdinalSuffixesFollowTheLastDigitButNotInTheTeens)
{
    const std::pair<int, const char*> cases[] = {{1, "st"},  {2, "nd"},  {3, "rd"},  {4, "th"},  {11, "th"},
                                                 {12, "th"}, {13, "th"}, {21, "st"}, {22, "nd"}, {23, "rd"},
                                                 {24, "th"}, {30, "th"}, {31, "st"}, {0, "th"},  {32, "th"}};
    for (const auto& [day, suffix] : cases)
        EXPECT_EQ(OrdinalSuffix(day), QString::fromLatin1(suffix)) << day;
}

TEST(HelperPaths, SplitPathTakesDirectoryNameAndNameWithoutExtension)
{
    struct Case {
        const char* path;
        const char* dir;
        const char* name;
        const char* nameOnly;
    };
    const Case cases[] = {
        {"C:\\Quillon\\Data\\varlo.mdb", "C:\\Quillon\\Data\\", "varlo.mdb", "varlo"},
        {"/home/ann/backup/varlo.bak.mdb", "/home/ann/backup/", "varlo.bak.mdb", "varlo"},
        {"A:names.txt", "A:", "names.txt", "names"},
        {"names", "", "names", "names"},
        {"/home/ann.smith/readme", "/home/ann.smith/", "readme", "readme"},
        {"C:\\dir/mixed\\file.csv", "C:\\dir/mixed\\", "file.csv", "file"},
        {"/home/ann/", "/home/ann/", "", ""},
    };
    for (const Case& c : cases) {
        const QString path = QString::fromLatin1(c.path);
        EXPECT_EQ(SplitPath(path, QStringLiteral("dir")), QString::fromLatin1(c.dir)) << c.path;
        EXPECT_EQ(SplitPath(path, QStringLiteral("Name")), QString::fromLatin1(c.name)) << c.path;
        EXPECT_EQ(SplitPath(path, QStringLiteral("NAMEONLY")), QString::fromLatin1(c.nameOnly)) << c.path;
        EXPECT_EQ(SplitPath(path, QStringLiteral("ext")), QString()) << c.path;
    }
}

TEST(HelperPaths, EnvelopeStylePiecesAreEnvelopesPostCardsAndNoteCards)
{
    EXPECT_TRUE(IsEnvelopeStyle(QStringLiteral("#10 Envelope")));
    EXPECT_TRUE(IsEnvelopeStyle(QStringLiteral("Avery 5389 POST CARD")));
    EXPECT_TRUE(IsEnvelopeStyle(QStringLiteral("Note Card (folded)")));
    EXPECT_FALSE(IsEnvelopeStyle(QStringLiteral("Address Label 5160")));
    EXPECT_FALSE(IsEnvelopeStyle(QStringLiteral("Postcard")));
    EXPECT_FALSE(IsEnvelopeStyle(QString()));
}

class HelpersTest : public ProgramFixture {
protected:
    void installHelp() { copyHelpInto(programDir()); }
    void TearDown() override
    {
        hideHelp();
        ProgramFixture::TearDown();
    }
    static QString debugText()
    {
        auto* box = forms::loaded<FormDebug>()->findChild<QPlainTextEdit*>(QStringLiteral("TextDebug"));
        return box->toPlainText();
    }
};

TEST_F(HelpersTest, WebPageHandsTheLinkToTheDesktopRefusesAnEmptyOneAndReportsOneThatCannotOpen)
{
    WebPage(QStringLiteral("mailto:ann@example.org"));
    EXPECT_EQ(dialogs().urlsOpened(), QStringList{QStringLiteral("mailto:ann@example.org")});
    EXPECT_TRUE(dialogs().messages().empty());
    dialogs().clearRecords();

    WebPage(QStringLiteral("   "));
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_EQ(lastMessage().text, QStringLiteral("An empty URL was encountered in WebPage.  This page cannot be loaded."));
    EXPECT_EQ(lastMessage().style, 0);
    EXPECT_TRUE(dialogs().urlsOpened().isEmpty());

    dialogs().urlOpens = false;
    WebPage(QStringLiteral("http://www.example.org"));
    EXPECT_EQ(lastMessage().text, QStringLiteral("Unable to link to http://www.example.org from WebPage. \nError code: 0\n\n"
                                                 "Your browser may not be installed correctly."));
}

TEST_F(HelpersTest, EveryContextNumberOpensItsOwnHelpPageAndMissingHelpIsReported)
{
    ASSERT_TRUE(setup());
    ShowHelpTopic(QStringLiteral("2380"));
    EXPECT_EQ(shownHelpPage(), QString());
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_EQ(lastMessage().text,
              QStringLiteral("The help of Quillon Homebook cannot be found in ") + programDir() + QStringLiteral("help."));
    dialogs().clearRecords();

    installHelp();
    const std::pair<const char*, const char*> topics[] = {
        {"2190", "address-report.html"}, {"2195", "phone-report.html"}, {"2197", "detail-report.html"},
        {"2199", "custom-report.html"},  {"2320", "options.html"},       {"2380", "faq.html"},
        {"2460", "page-setup.html"},     {"2527", "return-address.html"}, {"2550", "import.html"},
        {"2555", "comma-delimited-import.html"}, {"2560", "duplicate-warning.html"}, {"2565", "vcard-import.html"},
        {"2570", "address-book-server.html"}, {"2575", "sync.html"}};
    for (const auto& [context, page] : topics) {
        ShowHelpTopic(QString::fromLatin1(context));
        EXPECT_EQ(shownHelpPage(), QString::fromLatin1(page)) << context;
    }
    ShowHelpContents();
    EXPECT_EQ(shownHelpPage(), QStringLiteral("index.html"));
    EXPECT_TRUE(dialogs().messages().empty());
}

TEST_F(HelpersTest, TheDebugLogPutsTheNewestLineFirstInAHiddenWindow)
{
    EXPECT_EQ(forms::loaded<FormDebug>(), nullptr);
    DebugLog(QStringLiteral("In LoadMailit"));
    DebugLog(QStringLiteral("Calling RefreshEZ"));
    FormDebug* debug = forms::loaded<FormDebug>();
    ASSERT_NE(debug, nullptr);
    EXPECT_FALSE(debug->isFormVisible());
    EXPECT_EQ(debug->windowTitle(), QStringLiteral("Homebook Debug Window"));
    EXPECT_EQ(debugText(), QStringLiteral("10:30:00: Calling RefreshEZ\n10:30:00: In LoadMailit\n"));

    showDebugWindow();
    EXPECT_TRUE(debug->isFormVisible());
    auto* box = control<QPlainTextEdit>(*debug, QStringLiteral("TextDebug"));
    EXPECT_GE(box->width(), debug->width() - 2) << "the text box fills the window";
}

TEST_F(HelpersTest, ALongDebugTextIsCutToItsNewestFiveThousandCharacters)
{
    const QString line(89, QLatin1Char('a'));   // 100 characters an entry with time, ": " and line break
    for (int i = 1; i <= 150; ++i)
        DebugLog(line);
    EXPECT_EQ(debugText().size(), 15000) << "not longer than 15000 yet";
    DebugLog(QStringLiteral("the newest"));
    const QString cut = debugText();
    EXPECT_EQ(cut.size(), 5000);
    EXPECT_TRUE(cut.startsWith(QStringLiteral("10:30:00: the newest\n")));

    for (int i = 0; i < 400; ++i) {
        DebugLog(QString(i % 37, QLatin1Char('b')));
        ASSERT_LE(debugText().size(), 15000 + 60) << "at most 15000 characters and one entry";
    }
}
