#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTextBrowser>
#include <filesystem>

#include "platform/help/helpwindow.h"

// The program's help pages, copied from the sources into a test's program folder as the build ships them.
inline void copyHelpInto(const QString& programDir)
{
    const QString source =
        QString::fromStdString((std::filesystem::path(HB_SOURCE_DIR) / "help").lexically_normal().string());
    QDir().mkpath(programDir + QStringLiteral("help"));
    QDirIterator files(source, QDir::Files);
    while (files.hasNext()) {
        const QString file = files.next();
        QFile::copy(file, programDir + QStringLiteral("help/") + QFileInfo(file).fileName());
    }
}

// The page file the help window shows, or nothing when the window is not up.
inline QString shownHelpPage()
{
    QWidget* window = hb::help::helpWindow();
    if (!window || !window->isVisible())
        return {};
    auto* browser = window->findChild<QTextBrowser*>(QStringLiteral("HelpBrowser"));
    return QFileInfo(browser->source().toLocalFile()).fileName();
}

inline void hideHelp()
{
    if (QWidget* window = hb::help::helpWindow())
        window->hide();
}
