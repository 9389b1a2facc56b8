#include "dialfixture.h"
#include "fakemodem.h"

#include "core/options.h"

#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>

using namespace hb;

namespace {

class DialLinesTest : public DialFixture {
protected:
    // Chooses a line in Dial Using by typing it, as a user does for a port the system does not list.
    void chooseLine(QWidget& w, const QString& port, bool accept = true)
    {
        dialogs().onModal([&](QWidget& using_) {
            EXPECT_EQ(using_.windowTitle(), QStringLiteral("Dial Using"));
            keepPicture(&using_, QStringLiteral("DialUsing"));
            auto* line = control<QComboBox>(using_, QStringLiteral("cmbLine"));
            line->lineEdit()->selectAll();
            QTest::keyClicks(line->lineEdit(), port);
            press(using_, accept ? QStringLiteral("cmdOK") : QStringLiteral("cmdCancel"));
        });
        press(w, QStringLiteral("cmdDialUsing"));
    }
    static QLabel* status(QWidget& progress) { return control<QLabel>(progress, QStringLiteral("lblStatus")); }
};

TEST_F(DialLinesTest, WithoutAModemTheTrimmedNumberGoesToTheDesktopAndADesktopWithoutAPhoneProgramSaysSo)
{
    SetSOption(401, QStringLiteral("9,"));  // the modem's outside line, not the desktop's
    DialNumber = QStringLiteral("  +1 555 0100 ");
    withDialer([this](QWidget& w) {
        press(w, QStringLiteral("cmdDial"));
        EXPECT_EQ(dialogs().urlsOpened(), QStringList{QStringLiteral("tel:+15550100")});
        EXPECT_TRUE(dialogs().messages().empty());
        EXPECT_TRUE(w.isVisible()) << "the window stays open after dialing";
        dialogs().urlOpens = false;
        dialogs().answer(ui::AnswerNo);
        press(w, QStringLiteral("cmdDial"));
        ASSERT_EQ(dialogs().messages().size(), 1u);
        EXPECT_EQ(lastMessage().text, QStringLiteral("No program on this computer places calls from telephone links. "
                                                     "Install a softphone or pair a mobile phone, or dial through a "
                                                     "modem.\n\nChoose a modem now?"));
        EXPECT_EQ(lastMessage().title, QStringLiteral("AutoDial"));
        EXPECT_EQ(dialogs().modalsShown(), QStringList{"frmDial"}) << "No leaves the line as it was";

        // Yes opens the choice of line, and the modem chosen is kept.
        dialogs().answer(ui::AnswerYes);
        dialogs().onModal([](QWidget& using_) {
            auto* line = control<QComboBox>(using_, QStringLiteral("cmbLine"));
            line->lineEdit()->selectAll();
            QTest::keyClicks(line->lineEdit(), QStringLiteral("/dev/ttyS7"));
            press(using_, QStringLiteral("cmdOK"));
        });
        press(w, QStringLiteral("cmdDial"));
        EXPECT_EQ(dialogs().modalsShown(), (QStringList{"frmDial", "DialUsing"}));
        press(w, QStringLiteral("cmdClose"));
    });
    EXPECT_EQ(GetSOption(400), QStringLiteral("/dev/ttyS7"));
}

TEST_F(DialLinesTest, TheDesktopGetsAnRfc3966LinkAndANumberNotUnderstoodIsDialedAsTypedOnlyWhenTheUserAgrees)
{
    const QString question = QStringLiteral("\"ask for room 12\" is not a telephone number of United States. Dial "
                                            "12 as typed?");
    const struct {
        QString typed;
        int answer;  // to the question, 0 for none asked
    } dialed[] = {{QStringLiteral("(555) 123-4567 x89"), 0},
                  {QStringLiteral("1-800-FLOWERS"), 0},
                  {QStringLiteral("ask for room 12"), ui::AnswerNo},
                  {QStringLiteral("ask for room 12"), ui::AnswerYes}};
    for (const auto& d : dialed) {
        DialNumber = d.typed;
        if (d.answer)
            dialogs().answer(d.answer);
        withDialer([&](QWidget& w) {
            press(w, QStringLiteral("cmdDial"));
            press(w, QStringLiteral("cmdClose"));
        });
    }
    EXPECT_EQ(dialogs().urlsOpened(), (QStringList{QStringLiteral("tel:+15551234567;ext=89"),
                                                   QStringLiteral("tel:+18003569377"), QStringLiteral("tel:12")}));
    ASSERT_EQ(dialogs().messages().size(), 2u);
    EXPECT_EQ(dialogs().messages()[0].text, question);
    EXPECT_EQ(dialogs().messages()[1].text, question);

    // The home country is chosen in Properties and read for numbers written without a country code.
    DialNumber = QStringLiteral("030 1234567");
    withDialer([&](QWidget& w) {
        dialogs().onModal([](QWidget& p) {
            auto* country = control<QComboBox>(p, QStringLiteral("cmbCountry"));
            EXPECT_EQ(country->currentData().toString(), QStringLiteral("US"));
            country->setFocus();
            QTest::keyClicks(country, QStringLiteral("Germany"));
            press(p, QStringLiteral("cmdOK"));
        });
        press(w, QStringLiteral("cmdDialProperties"));
        press(w, QStringLiteral("cmdDial"));
        press(w, QStringLiteral("cmdClose"));
    });
    EXPECT_EQ(GetSOption(403), QStringLiteral("DE"));
    EXPECT_EQ(dialogs().urlsOpened().last(), QStringLiteral("tel:+49301234567"));
}

TEST_F(DialLinesTest, AModemCallShowsTheAnswerAndHangsUpWhenTheUserTalks)
{
    FakeModem modem;
    ASSERT_TRUE(modem.isValid());
    DialNumber = QStringLiteral(" 555 0100 ");
    withDialer([&](QWidget& w) {
        chooseLine(w, modem.portName());
        dialogs().onModal([&](QWidget& progress) {
            auto* talk = control<QPushButton>(progress, QStringLiteral("cmdTalk"));
            EXPECT_TRUE(FakeModem::waitFor([&] { return talk->isEnabled(); }));
            EXPECT_EQ(control<QLabel>(progress, QStringLiteral("lblNumber"))->text(), QStringLiteral("555 0100"))
                << "the number handed over has no outer blanks";
            EXPECT_EQ(status(progress)->text(),
                      QStringLiteral("The number has been dialed. Pick up the handset, then press Talk."));
            EXPECT_FALSE(modem.commands().contains("ATH"));
            keepPicture(&progress, QStringLiteral("DialProgress"));
            press(progress, QStringLiteral("cmdTalk"));
        });
        press(w, QStringLiteral("cmdDial"));
        EXPECT_TRUE(FakeModem::waitFor([&] { return modem.commands().contains("ATH"); }));
        press(w, QStringLiteral("cmdClose"));
    });
    EXPECT_EQ(modem.commands(), (QList<QByteArray>{"ATZ", "ATV1X4", "ATDT5550100;", "ATH"}));
    EXPECT_EQ(GetSOption(400), modem.portName()) << "the line chosen is kept";
}

TEST_F(DialLinesTest, ABusyLineIsToldAndClosingTheWindowLeavesTheModemOnHook)
{
    FakeModem modem;
    modem.answerDial("BUSY");
    SetSOption(400, modem.portName());
    DialNumber = QStringLiteral("5550100");
    withDialer([&](QWidget& w) {
        dialogs().onModal([&](QWidget& progress) {
            EXPECT_TRUE(FakeModem::waitFor([&] { return status(progress)->text().contains(QStringLiteral("busy")); }));
            EXPECT_EQ(status(progress)->text(), QStringLiteral("The line is busy. Try again later."));
            EXPECT_FALSE(control<QPushButton>(progress, QStringLiteral("cmdTalk"))->isEnabled());
            progress.close();
        });
        press(w, QStringLiteral("cmdDial"));
        press(w, QStringLiteral("cmdClose"));
    });
    // The modem reads on its own; the hang-up may still be on the line when the window has closed.
    EXPECT_TRUE(FakeModem::waitFor([&] { return modem.commands().contains("ATH"); }));
    EXPECT_EQ(modem.commands().last(), QByteArray("ATH"));
}

TEST_F(DialLinesTest, HangingUpBeforeTheModemAnswersStopsTheCall)
{
    FakeModem modem;
    modem.answerDial(QByteArray());
    SetSOption(400, modem.portName());
    DialNumber = QStringLiteral("5550100");
    withDialer([&](QWidget& w) {
        dialogs().onModal([&](QWidget& progress) {
            EXPECT_TRUE(FakeModem::waitFor([&] { return modem.commands().size() == 3; }));
            EXPECT_EQ(status(progress)->text(), QStringLiteral("Dialing 5550100..."));
            press(progress, QStringLiteral("cmdHangUp"));
        });
        press(w, QStringLiteral("cmdDial"));
        EXPECT_TRUE(FakeModem::waitFor([&] { return modem.commands().contains("ATH"); }));
        press(w, QStringLiteral("cmdClose"));
    });
}

TEST_F(DialLinesTest, CancellingDialUsingKeepsTheLineAndAMissingPortIsNamedAndNothingIsDialed)
{
    DialNumber = QStringLiteral("5550100");
    withDialer([&](QWidget& w) {
        chooseLine(w, QStringLiteral("/dev/ttyS9"), false);
        EXPECT_EQ(GetSOption(400), QString()) << "cancelling Dial Using keeps the line";
        chooseLine(w, QStringLiteral("/dev/ttyNoSuchModem7"));
        press(w, QStringLiteral("cmdDial"));
        press(w, QStringLiteral("cmdClose"));
    });
    EXPECT_EQ(lastMessage().text, QStringLiteral("The port /dev/ttyNoSuchModem7 does not exist. Choose the modem's port "
                                                 "with Dial Using."));
    EXPECT_TRUE(dialogs().urlsOpened().isEmpty());
    EXPECT_EQ(dialogs().modalsShown(), (QStringList{"frmDial", "DialUsing", "DialUsing"})) << "no dialing window without a port";
}

TEST_F(DialLinesTest, PropertiesAreStoredOnOkOnlyAndShownAgainNextTime)
{
    withDialer([&](QWidget& w) {
        dialogs().onModal([](QWidget& p) {
            QTest::keyClicks(control<QLineEdit>(p, QStringLiteral("txtPrefix")), QStringLiteral("8"));
            press(p, QStringLiteral("cmdCancel"));
        });
        press(w, QStringLiteral("cmdDialProperties"));
        press(w, QStringLiteral("cmdClose"));
    });
    EXPECT_EQ(GetNOption(400), -1) << "cancel wrote no row";
    EXPECT_EQ(GetSOption(401), QString());

    FakeModem modem;
    SetSOption(400, modem.portName());
    withDialer([&](QWidget& w) {
        dialogs().onModal([](QWidget& p) {
            EXPECT_EQ(p.windowTitle(), QStringLiteral("Dialing Properties"));
            keepPicture(&p, QStringLiteral("DialProperties"));
            QTest::mouseClick(control<QRadioButton>(p, QStringLiteral("optPulse")), Qt::LeftButton);
            QTest::keyClicks(control<QLineEdit>(p, QStringLiteral("txtPrefix")), QStringLiteral("9,"));
            auto* wait = control<QSpinBox>(p, QStringLiteral("spnWait"));
            wait->selectAll();
            QTest::keyClicks(wait, QStringLiteral("20"));
            press(p, QStringLiteral("cmdOK"));
        });
        press(w, QStringLiteral("cmdDialProperties"));
        press(w, QStringLiteral("cmdClose"));
    });
    EXPECT_EQ(GetNOption(401), 1);
    EXPECT_EQ(GetSOption(401), QStringLiteral("9,"));
    EXPECT_EQ(GetNOption(402), 20);

    DialNumber = QStringLiteral("555-0100");
    withDialer([&](QWidget& w) {
        dialogs().onModal([](QWidget& p) {
            EXPECT_TRUE(control<QRadioButton>(p, QStringLiteral("optPulse"))->isChecked());
            EXPECT_EQ(control<QLineEdit>(p, QStringLiteral("txtPrefix"))->text(), QStringLiteral("9,"));
            press(p, QStringLiteral("cmdCancel"));
        });
        press(w, QStringLiteral("cmdDialProperties"));
        dialogs().onModal([&](QWidget& progress) {
            EXPECT_TRUE(FakeModem::waitFor([&] { return modem.commands().size() >= 3; }));
            progress.close();
        });
        press(w, QStringLiteral("cmdDial"));
        press(w, QStringLiteral("cmdClose"));
    });
    EXPECT_EQ(modem.commands().value(2), QByteArray("ATDP9,5550100;"));
}

} // namespace
