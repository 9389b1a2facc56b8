#include "platform/ui/onelinebox.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QValidator>
#include <algorithm>

namespace hb::ui {

namespace {
bool isBreak(QChar c)
{
    return c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QChar::LineSeparator
           || c == QChar::ParagraphSeparator;
}

// The line edit runs every change through its validator and takes the text the validator leaves.
class OneLineValidator : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& input, int& pos) const override
    {
        if (std::none_of(input.cbegin(), input.cend(), isBreak))
            return Acceptable;
        pos = int(oneLine(input.left(pos)).size());
        input = oneLine(input);
        pos = std::min(pos, int(input.size()));
        return Acceptable;
    }
};

class TabSelector : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* box = qobject_cast<QPlainTextEdit*>(watched);
        if (box && event->type() == QEvent::FocusIn) {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
                selectTrimmed(box);
        }
        return false;
    }

private:
    static void selectTrimmed(QPlainTextEdit* box)
    {
        QString text = box->toPlainText();
        int length = int(text.size());
        while (length > 0 && text.at(length - 1) == QLatin1Char(' '))
            --length;
        QTextCursor cursor = box->textCursor();
        cursor.setPosition(0);
        cursor.setPosition(length, QTextCursor::KeepAnchor);
        box->setTextCursor(cursor);
    }
};
} // namespace

QString oneLine(const QString& text)
{
    QString out;
    out.reserve(text.size());
    bool inBreak = false;
    for (const QChar c : text) {
        if (isBreak(c)) {
            if (!inBreak)
                out += QLatin1Char(' ');
            inBreak = true;
        } else {
            out += c;
            inBreak = false;
        }
    }
    return out;
}

void keepOneLine(QLineEdit* box) { box->setValidator(new OneLineValidator(box)); }

void selectOnTab(QPlainTextEdit* box) { box->installEventFilter(new TabSelector(box)); }

} // namespace hb::ui
