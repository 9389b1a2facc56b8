#include "addressbook/formnolistby.h"

#include "core/handlers.h"
#include "core/options.h"
#include "platform/ui/buttons.h"
#include "platform/ui/twips.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace hb {

namespace {
void place(QWidget* w, int left, int top, int width, int height)
{
    w->setGeometry(ui::px(left), ui::px(top), ui::px(width), ui::px(height));
}
} // namespace

FormNoListby::FormNoListby() : Form(staticFormName(), false)
{
    // No close box: the question is answered by one of its two buttons.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setWindowTitle(QStringLiteral("List By Warning"));
    buildControls();
    connectHandler(CommandYes, &QPushButton::clicked, this, &FormNoListby::CommandYes_Click);
    connectHandler(CommandNo, &QPushButton::clicked, this, &FormNoListby::CommandNo_Click);
}

void FormNoListby::buildControls()
{
    setFixedSize(ui::px(5520), ui::px(2700));
    Label1 = new QLabel(QStringLiteral("You have not entered any information in the List By field.  This field is used "
                                       "to sort your list of names.  We recommend that you enter the last name of the "
                                       "family or the name of the business in this field.  Do you want to save this "
                                       "name without entering the List By field?"),
                        this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    Label1->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    place(Label1, 240, 180, 5040, 1320);
    CheckDontAsk = new QCheckBox(QStringLiteral("Don't ask this again"), this);
    CheckDontAsk->setObjectName(QStringLiteral("CheckDontAsk"));
    place(CheckDontAsk, 240, 1620, 3000, 300);
    CommandYes = new QPushButton(QStringLiteral("&Yes"), this);
    CommandYes->setObjectName(QStringLiteral("CommandYes"));
    place(CommandYes, 1440, 2100, 1200, 375);
    CommandNo = new QPushButton(QStringLiteral("&No"), this);
    CommandNo->setObjectName(QStringLiteral("CommandNo"));
    place(CommandNo, 2880, 2100, 1200, 375);
}

void FormNoListby::formLoad() { CenterForm(*this); }

void FormNoListby::CommandYes_Click() { answer(QStringLiteral("yes")); }

void FormNoListby::CommandNo_Click() { answer(QStringLiteral("no")); }

// Either answer stores the box as option 51, where 1 means: do not ask any more.
void FormNoListby::answer(const QString& tag)
{
    SetNOption(51, ui::checkValue(*CheckDontAsk));
    Tag = tag;
    setFormVisible(false);
}

} // namespace hb
