#include "platform/ui/schemehandlers.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QStringList>
#include <QTextStream>

namespace hb::ui {

namespace {

// One directory from an XDG variable holding a single one, or its default under the home directory.
QString homeDir(const char* variable, const QString& underHome)
{
    const QString set = qEnvironmentVariable(variable);
    return set.isEmpty() ? QDir::homePath() + QLatin1Char('/') + underHome : set;
}

QStringList dirList(const char* variable, const QString& fallback)
{
    QString set = qEnvironmentVariable(variable);
    if (set.isEmpty())
        set = fallback;
    return set.split(QLatin1Char(':'), Qt::SkipEmptyParts);
}

QStringList applicationDirs()
{
    QStringList dirs;
    for (const QString& data : QStringList{homeDir("XDG_DATA_HOME", QStringLiteral(".local/share"))}
                                   + dirList("XDG_DATA_DIRS", QStringLiteral("/usr/local/share:/usr/share")))
        dirs << data + QStringLiteral("/applications");
    return dirs;
}

// The value of key in section of a desktop entry or mimeapps.list, split at its semicolons.
QStringList entry(const QString& path, const QString& section, const QString& key)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QTextStream in(&file);
    bool inSection = false;
    while (!in.atEnd()) {
        const QString line = in.readLine().trimmed();
        if (line.startsWith(QLatin1Char('['))) {
            inSection = line == QLatin1Char('[') + section + QLatin1Char(']');
        } else if (inSection) {
            const qsizetype equals = line.indexOf(QLatin1Char('='));
            if (equals > 0 && line.left(equals).trimmed() == key)
                return line.mid(equals + 1).trimmed().split(QLatin1Char(';'), Qt::SkipEmptyParts);
        }
    }
    return {};
}

// The file of an installed, not hidden, desktop entry; empty when there is none.
QString desktopFile(const QString& id)
{
    for (const QString& dir : applicationDirs()) {
        const QString path = dir + QLatin1Char('/') + id;
        if (QFile::exists(path))
            return entry(path, QStringLiteral("Desktop Entry"), QStringLiteral("Hidden")).value(0)
                           == QStringLiteral("true")
                       ? QString()
                       : path;
    }
    return {};
}

} // namespace

QString schemeHandler(const QString& scheme)
{
    const QString type = QStringLiteral("x-scheme-handler/") + scheme.toLower();
    QStringList lists;
    for (const QString& config : QStringList{homeDir("XDG_CONFIG_HOME", QStringLiteral(".config"))}
                                     + dirList("XDG_CONFIG_DIRS", QStringLiteral("/etc/xdg")))
        lists << config + QStringLiteral("/mimeapps.list");
    for (const QString& dir : applicationDirs())
        lists << dir + QStringLiteral("/mimeapps.list");

    // A default the user or the system set wins; then an association added; then any program that says
    // it handles the type, unless an association was removed.
    QSet<QString> removed;
    QStringList added;
    for (const QString& list : lists) {
        for (const QString& id : entry(list, QStringLiteral("Default Applications"), type)) {
            if (!removed.contains(id) && !desktopFile(id).isEmpty())
                return id;
        }
        for (const QString& id : entry(list, QStringLiteral("Added Associations"), type)) {
            if (!removed.contains(id))
                added << id;
        }
        for (const QString& id : entry(list, QStringLiteral("Removed Associations"), type))
            removed.insert(id);
    }
    for (const QString& id : added) {
        if (!desktopFile(id).isEmpty())
            return id;
    }
    for (const QString& dir : applicationDirs()) {
        for (const QString& id : QDir(dir).entryList({QStringLiteral("*.desktop")}, QDir::Files, QDir::Name)) {
            if (removed.contains(id) || desktopFile(id).isEmpty())
                continue;
            if (entry(dir + QLatin1Char('/') + id, QStringLiteral("Desktop Entry"), QStringLiteral("MimeType"))
                    .contains(type))
                return id;
        }
    }
    return {};
}

} // namespace hb::ui
