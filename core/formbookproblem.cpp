#include "core/formbookproblem.h"

#include "core/bookcheck.h"
#include "core/handlers.h"
#include "platform/ui/twips.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

namespace hb {

FormBookProblem::FormBookProblem() : Form(staticFormName(), false)
{
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Homebook"));
    setFixedSize(ui::px(7200), ui::px(3180));
    lblProblem = ui::placed(new QLabel(this), QStringLiteral("lblProblem"), 240, 180, 6720, 1200);
    lblBackup = ui::placed(new QLabel(this), QStringLiteral("lblBackup"), 240, 1500, 6720, 900);
    for (QLabel* label : {lblProblem, lblBackup}) {
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    cmdRestore = ui::placed(new QPushButton(QStringLiteral("&Restore Latest Backup"), this), QStringLiteral("cmdRestore"),
                            240, 2580, 2400, 375);
    cmdNewBook = ui::placed(new QPushButton(QStringLiteral("Start a &New Book"), this), QStringLiteral("cmdNewBook"),
                            2760, 2580, 2400, 375);
    cmdEnd = ui::placed(new QPushButton(QStringLiteral("&End Program"), this), QStringLiteral("cmdEnd"), 5280, 2580,
                        1680, 375);
    connectHandler(cmdRestore, &QPushButton::clicked, this, &FormBookProblem::cmdRestore_Click);
    connectHandler(cmdNewBook, &QPushButton::clicked, this, &FormBookProblem::cmdNewBook_Click);
    connectHandler(cmdEnd, &QPushButton::clicked, this, &FormBookProblem::cmdEnd_Click);
}

void FormBookProblem::formLoad() { CenterForm(*this); }

void FormBookProblem::setProblem(const QString& book, const QString& fault, const QString& backup, const QString& aside)
{
    Tag.clear();
    lblProblem->setText(QStringLiteral("The address book %1 can not be opened: %2.\n\nNothing has been changed. "
                                       "Restoring a backup or starting a new book keeps this file as \"%3\".")
                            .arg(QDir::toNativeSeparators(book), fault, QFileInfo(aside).fileName()));
    const auto summary = backup.isEmpty() ? std::nullopt : summaryOf(backup);
    if (summary)
        lblBackup->setText(QStringLiteral("Latest backup: %1\n%2").arg(QDir::toNativeSeparators(backup), summaryText(*summary)));
    else
        lblBackup->setText(QStringLiteral("No backup of the address book was found."));
    cmdRestore->setEnabled(summary.has_value());
    (summary ? cmdRestore : cmdNewBook)->setDefault(true);
}

void FormBookProblem::answer(const QString& choice)
{
    Tag = choice;
    setFormVisible(false);
}

void FormBookProblem::cmdRestore_Click() { answer(QStringLiteral("restore")); }
void FormBookProblem::cmdNewBook_Click() { answer(QStringLiteral("new")); }
void FormBookProblem::cmdEnd_Click() { answer(QStringLiteral("end")); }

// The close box ends, as the safest answer: nothing is changed.
void FormBookProblem::closeEvent(QCloseEvent* event)
{
    event->ignore();
    answer(QStringLiteral("end"));
}

} // namespace hb
