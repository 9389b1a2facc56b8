#include "core/formdebug.h"

#include "core/routes.h"
#include "platform/clock.h"
#include "platform/ui/twips.h"

#include <QCoreApplication>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QTextDocument>

namespace hb {

FormDebug::FormDebug() : Form(staticFormName(), false), TextDebug(new QPlainTextEdit(this))
{
    setWindowTitle(QStringLiteral("Homebook Debug Window"));
    TextDebug->setObjectName(QStringLiteral("TextDebug"));
    TextDebug->setLineWrapMode(QPlainTextEdit::NoWrap);
    resize(ui::px(7200), ui::px(5400));
}

void FormDebug::addEntry(const QString& text)
{
    const QString entry = clock::now().time().toString(QStringLiteral("hh:mm:ss")) + QStringLiteral(": ") + text +
                          QLatin1Char('\n');
    // Editing the document in place keeps a long log cheap to extend.
    QTextDocument* document = TextDebug->document();
    QTextCursor cursor(document);
    cursor.movePosition(QTextCursor::Start);
    cursor.insertText(entry);
    if (document->characterCount() - 1 > LongestText) {
        cursor.setPosition(KeptText);
        cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
    QCoreApplication::processEvents();
}

void FormDebug::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    TextDebug->setGeometry(ui::px(1), ui::px(1), width(), height());
}

void showDebugWindow() { forms::get<FormDebug>().setFormVisible(true); }

} // namespace hb
