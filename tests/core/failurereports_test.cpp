#include "programfixture.h"

#include "core/errors.h"
#include "core/formdebug.h"
#include "core/forms.h"
#include "core/session.h"
#include "platform/storage/database.h"

#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace hb;

namespace {

QString debugLog()
{
    auto* form = forms::loaded<FormDebug>();
    return form ? form->findChild<QPlainTextEdit*>(QStringLiteral("TextDebug"))->toPlainText() : QString();
}

} // namespace

class FailureReportTest : public ProgramFixture {};

TEST_F(FailureReportTest, AFailureInAHandlerNamesTheWindowAndTheControlAndEndsWithStatusOne)
{
    QWidget frame;  // the window the listings sit in, as in the frame's work area
    frame.setObjectName(QStringLiteral("FrmMDI"));
    auto* window = new Form(QStringLiteral("frmAddressBook"), false);
    window->setParent(&frame);
    auto* panel = new QWidget(window);
    auto* button = new QPushButton(QStringLiteral("OK"), panel);
    button->setObjectName(QStringLiteral("cmdOK"));
    QObject::connect(button, &QPushButton::clicked, [] {
        throw DbError(3049, QStringLiteral("Cannot open database 'varlo.mdb'."),
                      QStringLiteral("select * from Roof where RoofNumber = 3"));
    });
    frame.show();
    window->show();
    EXPECT_EQ(exitStatus(), 0);
    QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_TRUE(lastMessage().text.startsWith(
        QStringLiteral("An internal error has been encountered.\n Location: frmAddressBook.cmdOK\n Error: 3049\n")))
        << lastMessage().text.toStdString();
    EXPECT_TRUE(programEnded());
    EXPECT_EQ(exitStatus(), 1);
    EXPECT_TRUE(debugLog().contains(QStringLiteral("Error 3049 in: select * from Roof where RoofNumber = 3")));
    delete window;
}

