#pragma once

// The CUPS scheduler with a PDF queue (cups-pdf), for the tests that print "to a printer".

#include <QDateTime>
#include <QString>

// The queue that scripts/start-cups.sh sets up.
inline const QString CupsPdfQueue = QStringLiteral("PDF");

// Empty when the scheduler and the queue are up and offered to Qt; the reason otherwise.
QString startCupsPdfQueue();

// The file that cups-pdf writes for a job named title and begun after since, once it is there; empty
// after 30 seconds.
QString cupsPdfOutput(const QString& title, const QDateTime& since);
