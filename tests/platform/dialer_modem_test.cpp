#include "../support/fakemodem.h"
#include "platform/dialer/modemdialer.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using hb::dialer::DialerSettings;
using hb::dialer::ModemDialer;
using Outcome = ModemDialer::Outcome;

namespace {

class ModemDialerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(modem.isValid());
        settings.port = modem.portName();
        settings.waitSeconds = 2;
    }

    // Dials on the fake modem and waits for the dialer's verdict.
    Outcome dial(const QString& number)
    {
        QString failure;
        EXPECT_TRUE(dialer.open(settings, failure)) << failure.toStdString();
        dialer.dial(number);
        EXPECT_TRUE(FakeModem::waitFor([&] { return finished.count() > 0; }));
        if (finished.isEmpty())
            return Outcome::None;
        message = finished.last().at(1).toString();
        return finished.last().at(0).value<Outcome>();
    }
    // The ATH that puts the modem on hook reaches the far side once the event loop has passed it on.
    bool hungUp() { return FakeModem::waitFor([&] { return modem.commands().contains("ATH"); }, 5000); }

    FakeModem modem;
    DialerSettings settings;
    ModemDialer dialer;
    QSignalSpy finished{&dialer, &ModemDialer::finished};
    QString message;
};

TEST_F(ModemDialerTest, AVoiceCallResetsInitsDialsWithTheSemicolonAndHangsUpWhenAsked)
{
    settings.prefix = QStringLiteral("9,");
    EXPECT_EQ(dial(QStringLiteral(" (555) 123-4567 ")), Outcome::Dialed);
    EXPECT_EQ(message, QStringLiteral("The number has been dialed. Pick up the handset, then press Talk."));
    EXPECT_EQ(modem.commands(), (QList<QByteArray>{"ATZ", "ATV1X4", "ATDT9,5551234567;"}));
    EXPECT_TRUE(dialer.isOpen()) << "the line stays off hook until the user has the handset";

    dialer.hangUp();
    EXPECT_TRUE(hungUp());
    EXPECT_FALSE(dialer.isOpen());
    EXPECT_EQ(modem.commands().size(), 4);
}

TEST_F(ModemDialerTest, TheExtensionIsDialedAfterAPauseAndLettersAsTheirKeypadDigits)
{
    const struct {
        const char* typed;
        const char* home;
        QByteArray dialed;
    } cases[] = {
        {"(555) 123-4567 x89", "US", "ATDT5551234567,89;"},
        {"1-800-FLOWERS", "US", "ATDT18003569377;"},
        {"020 7946 0018 ext. 204", "GB", "ATDT02079460018,204;"},
        {"+49 30 1234567;ext=5", "US", "ATDT01149301234567,5;"},
        {"room 4-7", "US", "ATDT47;"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        FakeModem line;
        ModemDialer modemDialer;
        QSignalSpy done(&modemDialer, &ModemDialer::finished);
        settings.port = line.portName();
        settings.homeCountry = QString::fromLatin1(c.home);
        QString failure;
        ASSERT_TRUE(modemDialer.open(settings, failure));
        modemDialer.dial(QString::fromUtf8(c.typed));
        ASSERT_TRUE(FakeModem::waitFor([&] { return done.count() > 0; }));
        EXPECT_EQ(line.commands().value(2), c.dialed);
        modemDialer.hangUp();
        EXPECT_TRUE(FakeModem::waitFor([&] { return line.commands().contains("ATH"); }, 5000));
    }
}

TEST_F(ModemDialerTest, PulseDialingAndAnEmptyInitStringLeaveTheInitOut)
{
    settings.pulse = true;
    settings.initString = QStringLiteral("  ");
    EXPECT_EQ(dial(QStringLiteral("311")), Outcome::Dialed);
    EXPECT_EQ(modem.commands(), (QList<QByteArray>{"ATZ", "ATDP311;"}));
}

TEST_F(ModemDialerTest, EachResultOfTheNetworkIsToldInPlainWordsAndFreesTheLine)
{
    const struct {
        QByteArray said;
        Outcome outcome;
        const char* words;
    } cases[] = {
        {"BUSY", Outcome::Busy, "The line is busy. Try again later."},
        {"NO CARRIER", Outcome::NoCarrier, "The call did not go through: the modem lost the line (no carrier)."},
        {"NO DIALTONE", Outcome::NoDialtone,
         "There is no dial tone. Check that the telephone line is plugged into the modem."},
        {"ERROR", Outcome::Refused, "The modem refused a command. Check the init string and the prefix in Properties."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.said.toStdString());
        FakeModem line;
        ModemDialer modemDialer;
        QSignalSpy done(&modemDialer, &ModemDialer::finished);
        line.answerDial(c.said);
        settings.port = line.portName();
        QString failure;
        ASSERT_TRUE(modemDialer.open(settings, failure));
        modemDialer.dial(QStringLiteral("5551234"));
        ASSERT_TRUE(FakeModem::waitFor([&] { return done.count() > 0; }));
        EXPECT_EQ(done.last().at(0).value<Outcome>(), c.outcome);
        EXPECT_EQ(done.last().at(1).toString(), QString::fromLatin1(c.words));
        EXPECT_TRUE(FakeModem::waitFor([&] { return line.commands().contains("ATH"); }, 5000));
        EXPECT_FALSE(modemDialer.isOpen());
    }
}

TEST_F(ModemDialerTest, AnErrorToTheInitStringStopsBeforeDialing)
{
    settings.initString = QStringLiteral("AT&BOGUS");
    modem.setScript([](const QByteArray& command) { return command == "AT&BOGUS" ? QByteArray("ERROR") : "OK"; });
    EXPECT_EQ(dial(QStringLiteral("5551234")), Outcome::Refused);
    EXPECT_TRUE(hungUp());
    EXPECT_EQ(modem.commands(), (QList<QByteArray>{"ATZ", "AT&BOGUS", "ATH"}));
}

TEST_F(ModemDialerTest, AModemThatEchoesAndRingsIsStillUnderstood)
{
    modem.setScript([](const QByteArray& command) {
        return command.startsWith("ATD") ? command + "\r\n\r\nRING\r\n\r\nOK" : command + "\r\n\r\nOK";
    });
    EXPECT_EQ(dial(QStringLiteral("5551234")), Outcome::Dialed);
}

TEST_F(ModemDialerTest, SilenceAfterTheDialCommandIsTheCallsNotAMissingModem)
{
    settings.waitSeconds = 1;
    modem.answerDial(QByteArray());
    EXPECT_EQ(dial(QStringLiteral("5551234")), Outcome::QuietAfterDial);
    EXPECT_EQ(message, QStringLiteral("The modem took the number but reported nothing about the call within 1 "
                                      "seconds. Pick up the handset to hear whether it rings, or allow the modem "
                                      "more time in Properties."));
    EXPECT_TRUE(hungUp());
}

TEST_F(ModemDialerTest, AModemSilentFromTheStartNeverHearsTheDialCommand)
{
    settings.waitSeconds = 1;
    modem.setScript([](const QByteArray&) { return QByteArray(); });
    EXPECT_EQ(dial(QStringLiteral("5551234")), Outcome::Silent);
    EXPECT_EQ(message, QStringLiteral("The modem did not answer within 1 seconds. Check that it is switched on and "
                                      "that Dial Using names its port."));
    EXPECT_TRUE(hungUp());
    EXPECT_EQ(modem.commands(), (QList<QByteArray>{"ATZ", "ATH"}));
}

TEST_F(ModemDialerTest, ALineClosedWhileDialingIsReportedAsLost)
{
    settings.waitSeconds = 30;
    modem.setScript([this](const QByteArray& command) {
        if (command.startsWith("ATD"))
            modem.closeLine();
        return command.startsWith("ATD") ? QByteArray() : QByteArray("OK");
    });
    EXPECT_EQ(dial(QStringLiteral("5551234")), Outcome::LineClosed);
    EXPECT_EQ(message, QStringLiteral("The connection to the modem was lost."));
    EXPECT_FALSE(dialer.isOpen());
}

TEST(ModemPort, AMissingPortIsNamedInTheMessage)
{
    DialerSettings settings;
    settings.port = QStringLiteral("/dev/ttyNoSuchModem7");
    ModemDialer dialer;
    QString failure;
    EXPECT_FALSE(dialer.open(settings, failure));
    EXPECT_EQ(failure, QStringLiteral("The port /dev/ttyNoSuchModem7 does not exist. Choose the modem's port with "
                                      "Dial Using."));
}

TEST(ModemPort, APortHeldByAnotherDialerIsBusy)
{
    FakeModem modem;
    DialerSettings settings;
    settings.port = modem.portName();
    ModemDialer first, second;
    QString failure;
    ASSERT_TRUE(first.open(settings, failure));
    EXPECT_FALSE(second.open(settings, failure));
    EXPECT_TRUE(failure.startsWith(QStringLiteral("The port %1 is in use by another program").arg(modem.portName())))
        << failure.toStdString();
}

} // namespace
