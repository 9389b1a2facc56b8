#include "core/helpers.h"

#include "core/formdebug.h"
#include "core/session.h"
#include "platform/help/helpwindow.h"
#include "platform/ui/windowservice.h"

#include <QVariant>
#include <QWidget>


namespace hb {

QString DayName(int weekday)
{
    static const char* const names[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    return weekday >= 1 && weekday <= 7 ? QString::fromLatin1(names[weekday - 1]) : QString();
}

QString OrdinalSuffix(int day)
{
    switch (day) {
    case 1: case 21: case 31: return QStringLiteral("st");
    case 2: case 22: return QStringLiteral("nd");
    case 3: case 23: return QStringLiteral("rd");
    default: return QStringLiteral("th");
    }
}

QString MonthName(int month)
{
    static const char* const names[] = {"January", "February", "March", "April", "May", "June", "July",
                                        "August", "September", "October", "November", "December"};
    return month >= 1 && month <= 12 ? QString::fromLatin1(names[month - 1]) : QStringLiteral("No Month");
}

QString SplitPath(const QString& path, const QString& word)
{
    // The separators of both desktops count, and the drive colon.
    qsizetype separator = -1;
    qsizetype firstDot = -1;
    for (qsizetype i = path.size() - 1; i >= 0; --i) {
        const QChar c = path.at(i);
        if (c == QLatin1Char('\\') || c == QLatin1Char('/') || c == QLatin1Char(':')) {
            separator = i;
            break;
        }
        if (c == QLatin1Char('.'))
            firstDot = i;
    }
    const QString name = path.mid(separator + 1);
    const QString which = word.toLower();
    if (which == QLatin1String("dir"))
        return path.left(separator + 1);
    if (which == QLatin1String("name"))
        return name;
    if (which == QLatin1String("nameonly"))
        return firstDot < 0 ? name : path.mid(separator + 1, firstDot - separator - 1);
    return {};
}

bool IsEnvelopeStyle(const QString& name)
{
    const QString lower = name.toLower();
    return lower.contains(QLatin1String("envelope")) || lower.contains(QLatin1String("post card")) ||
           lower.contains(QLatin1String("note card"));
}

void WebPage(const QString& url)
{
    if (url.trimmed().isEmpty()) {
        ui::msgBox(QStringLiteral("An empty URL was encountered in WebPage.  This page cannot be loaded."));
        return;
    }
    if (!ui::windows().openUrl(url)) {
        ui::msgBox(QStringLiteral("Unable to link to ") + url + QStringLiteral(" from WebPage. ") + QLatin1Char('\n') +
                   QStringLiteral("Error code: 0") + QStringLiteral("\n\n") +
                   QStringLiteral("Your browser may not be installed correctly."));
    }
}

namespace {

QString helpFolder() { return ResourcePath + QStringLiteral("help"); }

constexpr const char* HelpContextProperty = "HelpContextID";

void helpMissing()
{
    ui::msgBox(QStringLiteral("The help of Quillon Homebook cannot be found in ") + helpFolder() + QLatin1Char('.'),
               MsgWarning, QStringLiteral("Help"));
}

} // namespace

void ShowHelpTopic(const QString& context)
{
    help::setHelpFolder(helpFolder());
    if (!help::showTopic(context.toInt()))
        helpMissing();
}

void ShowHelpContents()
{
    help::setHelpFolder(helpFolder());
    if (!help::showContents())
        helpMissing();
}

void SetHelpContext(QWidget& window, const QString& context) { window.setProperty(HelpContextProperty, context); }

QString HelpContextOf(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        const QString context = widget->property(HelpContextProperty).toString();
        if (!context.isEmpty())
            return context;
    }
    return {};
}

// Kept as the windows' load calls it: the windows keep their tool tips, so there is nothing to clear.
void ClearToolTips(QWidget&) {}

void DebugLog(const QString& text) { forms::get<FormDebug>().addEntry(text); }

} // namespace hb
