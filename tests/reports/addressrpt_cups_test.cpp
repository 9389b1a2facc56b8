#include "addressrpt_fixture.h"
#include "printcapture.h"
#include "cupsqueue.h"

#include <QDir>
#include <QFileInfo>
#include <QPrinterInfo>
#include <QProcess>
#include <QThread>

using namespace hb;

namespace {

const QString& Queue = CupsPdfQueue;

QStringList jobs(const char* which)
{
    QProcess process;
    process.start(QStringLiteral("lpstat"), {QStringLiteral("-W"), QString::fromLatin1(which), QStringLiteral("-o"), Queue});
    process.waitForFinished(10000);
    return QString::fromLocal8Bit(process.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

class AddressReportCupsTest : public AddressReportFixture {};

TEST_F(AddressReportCupsTest, TheAddressReportPrintsToTheCupsPdfQueue)
{
    const QString reason = startCupsPdfQueue();
    if (!reason.isEmpty())
        GTEST_SKIP() << "CUPS cannot print here: " << reason.toStdString();
    const qsizetype before = jobs("completed").size();
    ASSERT_NE(open("mnuAddress"), nullptr);
    PrintCapture capture;
    capture.toQueue(Queue);
    dialogs().answerPrinter(true);
    ASSERT_TRUE(trigger(QStringLiteral("Print")));
    EXPECT_EQ(capture.printersChosen(), 1);
    // The job goes through the scheduler and the cups-pdf back end on their own time.
    for (int i = 0; i < 300 && jobs("completed").size() <= before; ++i)
        QThread::msleep(100);
    EXPECT_GT(jobs("completed").size(), before) << "no job of ours completed on " << Queue.toStdString()
                                                << "; pending: " << jobs("not-completed").join(QLatin1Char(';')).toStdString();
}
