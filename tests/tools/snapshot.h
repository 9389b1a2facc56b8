#pragma once

#include <QString>
#include <QWidget>

// To look at a window as a user sees it: saved only when HB_TOOLS_PNG_DIR names a folder.
inline void snapshot(QWidget& window, const char* name)
{
    if (const QByteArray folder = qgetenv("HB_TOOLS_PNG_DIR"); !folder.isEmpty())
        window.grab().save(QString::fromLocal8Bit(folder) + QLatin1Char('/') + QLatin1String(name) + QStringLiteral(".png"));
}
