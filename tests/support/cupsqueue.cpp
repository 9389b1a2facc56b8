#include "cupsqueue.h"

#include <QDir>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QThread>

QString startCupsPdfQueue()
{
    QProcess process;
    process.start(QStringLiteral("bash"), {QStringLiteral(HB_SOURCE_DIR "/scripts/start-cups.sh"), CupsPdfQueue});
    if (!process.waitForFinished(60000))
        return QStringLiteral("start-cups.sh did not finish");
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return QString::fromLocal8Bit(process.readAllStandardError()).trimmed();
    if (!QPrinterInfo::availablePrinterNames().contains(CupsPdfQueue))
        return QStringLiteral("the queue %1 is not offered to Qt").arg(CupsPdfQueue);
    return {};
}

// cups-pdf makes the name from the title: characters other than letters, digits and "-" become "_",
// leading ones are dropped, and it may add words of its own.
QString cupsPdfOutput(const QString& title, const QDateTime& since)
{
    QString name = title;
    name.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9-]")), QStringLiteral("_"));
    while (name.startsWith(QLatin1Char('_')))
        name.remove(0, 1);
    const QDir out(QDir::home().filePath(QStringLiteral("PDF")));
    for (int i = 0; i < 300; ++i) {
        for (const QFileInfo& file : out.entryInfoList({name + QStringLiteral("*.pdf")}, QDir::Files)) {
            if (file.lastModified() >= since && file.size() > 0) {
                QThread::msleep(300);   // let the back end close it
                return file.filePath();
            }
        }
        QThread::msleep(100);
    }
    return {};
}
