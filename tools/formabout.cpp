#include "tools/formabout.h"
#include "core/handlers.h"

#include "core/frame.h"
#include "core/helpers.h"
#include "core/options.h"
#include "core/routes.h"
#include "core/session.h"
#include "core/setup.h"
#include "platform/ui/buttons.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPalette>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace hb {

namespace {

QLabel* makeLabel(QWidget* parent, const char* name, const QString& text)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    return label;
}

// A label that reads as a link; a click anywhere on it opens its target (see eventFilter).
QLabel* makeLink(QWidget* parent, const char* name, const QString& text, const QString& url)
{
    QLabel* label = makeLabel(parent, name, text);
    label->setProperty("link", url);
    label->setCursor(Qt::PointingHandCursor);
    label->setToolTip(url);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, palette.color(QPalette::Link));
    label->setPalette(palette);
    QFont font = label->font();
    font.setUnderline(true);
    label->setFont(font);
    label->installEventFilter(parent);
    return label;
}

} // namespace

FormAbout::FormAbout() : Form(staticFormName(), false)
{
    setWindowTitle(QStringLiteral("About Quillon Homebook"));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    buildControls();
}

void FormAbout::buildControls()
{
    auto* picture = makeLabel(this, "Label2", QString());
    // The program's icon, as the desktop shows it; a plain one where the program has none set.
    const QIcon icon = QApplication::windowIcon().isNull() ? style()->standardIcon(QStyle::SP_DirHomeIcon)
                                                           : QApplication::windowIcon();
    picture->setPixmap(icon.pixmap(QSize(64, 64), picture->devicePixelRatioF()));
    auto* name = makeLabel(this, "Label1", QStringLiteral("Quillon Homebook"));
    QFont big = name->font();
    big.setPointSize(big.pointSize() + 8);
    big.setBold(true);
    name->setFont(big);
    auto* version = makeLabel(this, "Label4", QStringLiteral("Version 2.0"));
    auto* words = makeLabel(this, "Label5", QStringLiteral("Your address book, reports, labels and envelopes."));
    auto* maker = makeLabel(this, "Label6", QStringLiteral("Quillon Software"));
    auto* support = makeLabel(this, "Label10", QStringLiteral("Questions and suggestions are welcome:"));
    auto* mail = makeLink(this, "Label7", QStringLiteral("support@quillon.example"), QStringLiteral("mailto:support@quillon.example"));
    auto* web = makeLink(this, "Label8", QStringLiteral("www.quillon.example"), QStringLiteral("https://www.quillon.example/"));
    LabelBuild = makeLabel(this, "LabelBuild", QString());
    CheckDisplayAbout = new QCheckBox(QStringLiteral("Display on Program Start"), this);
    CheckDisplayAbout->setObjectName(QStringLiteral("CheckDisplayAbout"));
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);

    auto* grid = new QGridLayout(this);
    grid->addWidget(picture, 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(name, 0, 1);
    grid->addWidget(version, 1, 1);
    grid->addWidget(words, 2, 1);
    grid->addWidget(maker, 3, 1);
    grid->addWidget(support, 4, 1);
    grid->addWidget(mail, 5, 1);
    grid->addWidget(web, 6, 1);
    grid->addWidget(LabelBuild, 7, 1);
    grid->addWidget(CheckDisplayAbout, 8, 0, 1, 2);
    grid->addWidget(cmdOK, 8, 1, Qt::AlignRight);
    grid->setHorizontalSpacing(16);

    connectHandler(cmdOK, &QPushButton::clicked, this, &FormAbout::cmdOK_Click);
    connectHandler(CheckDisplayAbout, &QCheckBox::clicked, this, &FormAbout::CheckDisplayAbout_Click);
}

void FormAbout::formLoad()
{
    AboutAtStart = true;
    LabelBuild->setText(QStringLiteral("Build: %1.%2.%3").arg(HB_VERSION_MAJOR).arg(HB_VERSION_MINOR).arg(HB_VERSION_PATCH));
    if (loadMarker_ != QLatin1String("N")) {
        UpdateToolbar(QStringLiteral("Beg"));
        SetFramePointer(11);
        Setup();
        SetFramePointer(0);
        loadMarker_ = QStringLiteral("N");
    }
    CheckDisplayAbout->setChecked(DisplayAbout == 1);
    if (DisplayAbout == 1) {
        CenterForm(*this);
        setFormVisible(true);
    } else {
        QCoreApplication::processEvents();
        setFormVisible(false);
    }
}

void FormAbout::cmdOK_Click()
{
    QCoreApplication::processEvents();
    setFormVisible(false);
    if (AboutAtStart) {
        AboutAtStart = false;
        DisplayAbout = ui::checkValue(*CheckDisplayAbout);
        showAddressBook();
    }
}

void FormAbout::CheckDisplayAbout_Click() { SetNOption(5, ui::checkValue(*CheckDisplayAbout)); }

bool FormAbout::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease && watched->property("link").isValid()) {
        WebPage(watched->property("link").toString());
        return true;
    }
    return Form::eventFilter(watched, event);
}

void FormAbout::closeEvent(QCloseEvent* event)
{
    // Closing the about window only hides it.
    event->ignore();
    setFormVisible(false);
}

} // namespace hb
