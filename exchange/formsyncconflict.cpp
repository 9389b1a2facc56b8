#include "exchange/formsyncconflict.h"

#include "core/handlers.h"
#include "core/helpers.h"
#include "platform/ui/twips.h"

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace hb {
namespace {

QPlainTextEdit* version(QWidget* parent, const char* name, const char* caption, int left)
{
    auto* text = ui::placed(new QPlainTextEdit(parent), QString::fromLatin1(name), left, 1110, 3480, 2100);
    text->setReadOnly(true);
    auto* label = ui::placed(new QLabel(QString::fromUtf8(caption), parent), QStringLiteral("Label") + QLatin1String(name),
                             left, 840, 3480, 255);
    label->setBuddy(text);
    return text;
}

QPushButton* button(QWidget* parent, const char* name, const char* caption, const char* tip, int left, int width)
{
    auto* b = ui::placed(new QPushButton(QString::fromUtf8(caption), parent), QString::fromLatin1(name), left, 3840, width, 375);
    b->setToolTip(QString::fromUtf8(tip));
    return b;
}

}  // namespace

FormSyncConflict::FormSyncConflict() : Form(staticFormName(), false)
{
    SetHelpContext(*this, QStringLiteral("2575"));
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Changed on Both Sides"));
    setFixedSize(ui::px(7440), ui::px(4440));
    LabelConflictText = ui::placed(new QLabel(this), QStringLiteral("LabelConflictText"), 240, 180, 6960, 510);
    LabelConflictText->setWordWrap(true);
    TextHere = version(this, "TextHere", "On &this machine:", 240);
    TextThere = version(this, "TextThere", "On the &server:", 3960);
    CheckDoAlways = ui::placed(new QCheckBox(QStringLiteral("&Do this for every conflict of this sync"), this),
                               QStringLiteral("CheckDoAlways"), 240, 3360, 5000, 315);
    CommandKeepMine = button(this, "CommandKeepMine", "Keep This &Machine's", "Send this machine's version to the server", 240, 1860);
    CommandTakeServers = button(this, "CommandTakeServers", "Take the Ser&ver's", "Replace this machine's version with the server's", 2220, 1860);
    CommandKeepBoth = button(this, "CommandKeepBoth", "Keep &Both", "Keep this machine's version and add the server's beside it", 4200, 1500);
    CommandHelp = button(this, "CommandHelp", "&Help", "Display help", 6000, 1200);
    connectHandler(CommandKeepMine, &QPushButton::clicked, this, &FormSyncConflict::CommandKeepMine_Click);
    connectHandler(CommandTakeServers, &QPushButton::clicked, this, &FormSyncConflict::CommandTakeServers_Click);
    connectHandler(CommandKeepBoth, &QPushButton::clicked, this, &FormSyncConflict::CommandKeepBoth_Click);
    connectHandler(CommandHelp, &QPushButton::clicked, this, &FormSyncConflict::CommandHelp_Click);
}

void FormSyncConflict::formLoad() { CenterForm(*this); }

void FormSyncConflict::setConflict(const cardsync::Conflict& conflict)
{
    // Closed without an answer, the window keeps both versions: nothing is lost.
    Answer = cardsync::ConflictAnswer::KeepBoth;
    LabelConflictText->setText(QStringLiteral("%1 was changed on this machine and on the server since the last sync. "
                                              "Which version is to stay?")
                                   .arg(conflict.name));
    TextHere->setPlainText(conflict.here);
    TextThere->setPlainText(conflict.there);
}

bool FormSyncConflict::forAll() const
{
    return CheckDoAlways->isChecked();
}

void FormSyncConflict::answer(cardsync::ConflictAnswer answer)
{
    Answer = answer;
    setFormVisible(false);
}

void FormSyncConflict::CommandKeepMine_Click() { answer(cardsync::ConflictAnswer::KeepThisMachines); }
void FormSyncConflict::CommandTakeServers_Click() { answer(cardsync::ConflictAnswer::TakeServers); }
void FormSyncConflict::CommandKeepBoth_Click() { answer(cardsync::ConflictAnswer::KeepBoth); }
void FormSyncConflict::CommandHelp_Click() { ShowHelpTopic(QStringLiteral("2575")); }

}  // namespace hb
