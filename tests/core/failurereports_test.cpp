#include "programfixture.h"

#include "core/application.h"
#include "core/errors.h"
#include "core/formdebug.h"
#include "core/forms.h"
#include "core/session.h"
#include "platform/storage/recordset.h"
#include "platform/storage/database.h"

#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace hb;

namespace {

QString debugLog()
{
    auto* form = forms::loaded<FormDebug>();
    return form ? form->findChild<QPlainTextEdit*>(QStringLiteral("TextDebug"))->toPlainText() : QString();
}

} // namespace

class FailureReportTest : public ProgramFixture {};

TEST_F(FailureReportTest, AFailureInAHandlerNamesTheWindowAndTheControlAndEndsWithStatusOne)
{
    QWidget frame;  // the window the listings sit in, as in the frame's work area
    frame.setObjectName(QStringLiteral("FrmMDI"));
    auto* window = new Form(QStringLiteral("frmAddressBook"), false);
    window->setParent(&frame);
    auto* panel = new QWidget(window);
    auto* button = new QPushButton(QStringLiteral("OK"), panel);
    button->setObjectName(QStringLiteral("cmdOK"));
    QObject::connect(button, &QPushButton::clicked, [] {
        throw DbError(3049, QStringLiteral("Cannot open database 'varlo.mdb'."),
                      QStringLiteral("select * from Roof where RoofNumber = 3"));
    });
    frame.show();
    window->show();
    EXPECT_EQ(exitStatus(), 0);
    QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_TRUE(lastMessage().text.startsWith(
        QStringLiteral("An internal error has been encountered.\n Location: frmAddressBook.cmdOK\n Error: 3049\n")))
        << lastMessage().text.toStdString();
    EXPECT_TRUE(programEnded());
    EXPECT_EQ(exitStatus(), 1);
    EXPECT_TRUE(debugLog().contains(QStringLiteral("Error 3049 in: select * from Roof where RoofNumber = 3")));
    delete window;
}


// The end after a failure is one path: the save of the settings runs on its own, and a book that no longer
// takes it does not bring a second report; the program ends with the status of a failure either way.
TEST_F(FailureReportTest, NoAfterAFailureEndsOnceEvenWhenTheBookNoLongerTakesTheSettings)
{
    for (const bool bookTakesSave : {true, false}) {
        SCOPED_TRACE(bookTakesSave ? "a sound book" : "a book without its options");
        resetSession();
        clearProgramEnded();
        ASSERT_TRUE(setup());
        PieceName = QStringLiteral("Envelope");
        if (!bookTakesSave)
            DB.execute(QStringLiteral("drop table StringOptions"));
        const size_t before = dialogs().messages().size();
        dialogs().answer(ui::AnswerNo);
        EXPECT_FALSE(guarded([] {
            StandardHandler handler(QStringLiteral("Test"));
            handler.run([] { throw DbError(3021, QStringLiteral("No current record.")); });
        }));
        EXPECT_EQ(dialogs().messages().size(), before + 1) << lastMessage().text.toStdString();
        EXPECT_TRUE(programEnded());
        EXPECT_EQ(exitStatus(), 1);
        EXPECT_FALSE(DB.isOpen());
        if (bookTakesSave) {
            Database book = Database::open(mainDatabase());
            Recordset piece = book.openRecordset(QStringLiteral("select Option from StringOptions where OptionNumber = 1"));
            EXPECT_EQ(piece.value(QStringLiteral("Option")).toString().trimmed(), QStringLiteral("Envelope"));
        }
    }
}

// Code after a modal window does not run on when the program ended while the window was up.
TEST_F(FailureReportTest, NothingRunsAfterAModalWindowDuringWhichTheProgramEnded)
{
    QWidget modal;
    dialogs().onModal([](QWidget&) { runGuarded(QStringLiteral("modal"), [] { endProcess(); }); });
    bool ranOn = false;
    EXPECT_FALSE(guarded([&] {
        ui::showModal(modal);
        ranOn = true;
    }));
    EXPECT_FALSE(ranOn);
    EXPECT_TRUE(programEnded());
}
