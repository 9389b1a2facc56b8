#include "importwindow_fixture.h"

#include "addressbook/frmaddressbook.h"
#include "exchange/formimport.h"

#include <QDir>
#include <QRadioButton>

using namespace hb;

class FormImportTest : public ImportWindowFixture {};

TEST_F(FormImportTest, OpensFromTheMenuOnTheCommaDelimitedSourceInTheHomeFolder)
{
    dialogs().onModal([&](QWidget& w) {
        EXPECT_EQ(w.objectName(), QStringLiteral("FormImport"));
        EXPECT_EQ(w.windowTitle(), QStringLiteral("Import"));
        EXPECT_TRUE(control<QRadioButton>(w, QStringLiteral("OptionImportCD"))->isChecked());
        EXPECT_EQ(control<QLineEdit>(w, QStringLiteral("TextFileLocation"))->text(), QDir::homePath() + QStringLiteral("/"));
        auto* types = control<QComboBox>(w, QStringLiteral("ComboCategory"));
        EXPECT_EQ(types->count(), RoofTypeCount);
        EXPECT_EQ(types->currentIndex(), 0);
        EXPECT_TRUE(types->isVisible());
        keepPicture(&w, QStringLiteral("import"));
        QTest::mouseClick(control<QRadioButton>(w, QStringLiteral("OptionImportHomebook")), Qt::LeftButton,
                          {}, QPoint(6, 6));
        EXPECT_FALSE(types->isVisible());
        EXPECT_FALSE(control<QLabel>(w, QStringLiteral("LabelType"))->isVisible());
        QTest::mouseClick(control<QRadioButton>(w, QStringLiteral("OptionImportBK")), Qt::LeftButton, {}, QPoint(6, 6));
        EXPECT_TRUE(types->isVisible());
        press(w, "CommandCancel");
    });
    openImport();
    EXPECT_EQ(forms::loaded<FormImport>(), nullptr);
    ASSERT_NE(forms::loaded<FrmAddressBook>(), nullptr);
    EXPECT_TRUE(forms::loaded<FrmAddressBook>()->isFormVisible());
}

TEST_F(FormImportTest, AMissingFileOrAFolderIsRefusedAndTheWindowStays)
{
    dialogs().onModal([&](QWidget& w) {
        auto* location = control<QLineEdit>(w, QStringLiteral("TextFileLocation"));
        for (const QString& path : {programDir() + QStringLiteral("nothing.csv"), programDir()}) {
            location->selectAll();
            QTest::keyClicks(location, path);
            dialogs().answer(ui::AnswerOk);
            press(w, "CommandImport");
            EXPECT_EQ(lastMessage().text, QStringLiteral("The file listed does not exist.  Please choose a valid file name."));
            EXPECT_EQ(lastMessage().title, QStringLiteral("File Error"));
            EXPECT_TRUE(w.isVisible());
        }
        press(w, "CommandCancel");
    });
    openImport();
    EXPECT_EQ(roofCount(), 0);
}

TEST_F(FormImportTest, BrowsePutsTheChosenFileInPlaceAndRemembersItsFolder)
{
    const QString path = writeFile(QStringLiteral("contacts.csv"), "Smith\n");
    dialogs().onModal([&](QWidget& w) {
        auto* location = control<QLineEdit>(w, QStringLiteral("TextFileLocation"));
        dialogs().answerFile(path);
        press(w, "CommandBrowse");
        EXPECT_EQ(location->text(), path);
        dialogs().answerFile(QString());
        press(w, "CommandBrowse");
        EXPECT_EQ(location->text(), path) << "a cancelled dialog leaves the text";
        QTest::mouseClick(control<QRadioButton>(w, QStringLiteral("OptionImportBK")), Qt::LeftButton, {}, QPoint(6, 6));
        EXPECT_EQ(location->text(), QDir::homePath() + QStringLiteral("/"));
        QTest::mouseClick(control<QRadioButton>(w, QStringLiteral("OptionImportCD")), Qt::LeftButton, {}, QPoint(6, 6));
        EXPECT_EQ(location->text(), programDir());
        press(w, "CommandCancel");
    });
    openImport();
}

TEST_F(FormImportTest, BrowseListsAllFilesFirstWithTheSourcesFilterInForce)
{
    const struct {
        const char* option;
        const char* filter;
    } sources[] = {{"OptionImportCD", "Comma Delimited Files (*.txt *.csv)"},
                   {"OptionImportBK", "Bracketeer Files (*.brk)"},
                   {"OptionImportQuillon", "Quillon Files (*.mdb)"},
                   {"OptionImportHomebook", "Homebook Files (*.mdb)"},
                   {"OptionImportVCard", "vCard Files (*.vcf *.vcard)"}};
    dialogs().onModal([&](QWidget& w) {
        for (const auto& s : sources) {
            QTest::mouseClick(control<QRadioButton>(w, QString::fromLatin1(s.option)), Qt::LeftButton, {}, QPoint(6, 6));
            dialogs().answerFile(QString());
            press(w, "CommandBrowse");
        }
        press(w, "CommandCancel");
    });
    openImport();
    const auto& shown = dialogs().openFileDialogs();
    ASSERT_EQ(shown.size(), std::size(sources));
    for (size_t i = 0; i < shown.size(); ++i) {
        SCOPED_TRACE(sources[i].option);
        EXPECT_EQ(shown[i].caption, QStringLiteral("Browse for Files"));
        EXPECT_EQ(shown[i].filters, (QStringList{QStringLiteral("All Files (*)"), QString::fromLatin1(sources[i].filter)}));
        EXPECT_EQ(shown[i].selectedFilter, QString::fromLatin1(sources[i].filter));
    }
}
