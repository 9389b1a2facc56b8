// The controls of the listings window and where they stand, in twips.

#include "addressbook/frmaddressbook.h"

#include "platform/ui/captionlabel.h"
#include "platform/ui/contrast.h"
#include "platform/ui/listbox.h"
#include "platform/ui/onelinebox.h"
#include "platform/ui/twips.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>

#include <algorithm>

namespace hb {

namespace {

const QColor listingBack(128, 128, 128);
const QColor individualBack(192, 192, 192);
const QColor yellow(255, 255, 0);
const QColor blue(0, 0, 255);

void place(QWidget* w, int left, int top, int width, int height)
{
    w->setGeometry(ui::px(left), ui::px(top), ui::px(width), ui::px(height));
}

void colour(QWidget* w, const QColor& fore, const QColor& back = QColor())
{
    QPalette p = w->palette();
    p.setColor(QPalette::WindowText, fore);
    p.setColor(QPalette::Text, fore);
    if (back.isValid()) {
        p.setColor(QPalette::Window, back);
        p.setColor(QPalette::Base, back);
        w->setAutoFillBackground(true);
    }
    w->setPalette(p);
}

QFrame* frame(QWidget* parent, const char* name, const QColor& back)
{
    auto* f = new QFrame(parent);
    f->setObjectName(QString::fromLatin1(name));
    f->setFrameShape(QFrame::Box);
    // Only the frame's own ground (and the text on it): the boxes and lists inside keep their colours.
    ui::setFixedGround(f, back);
    return f;
}

QLabel* label(QWidget* parent, const char* name, const QString& text, int left, int top, int width, int height = 255)
{
    auto* l = new ui::CaptionLabel(text, parent);
    l->setObjectName(QString::fromLatin1(name));
    place(l, left, top, width, height);
    return l;
}

QLabel* display(QWidget* parent, const char* name, int left, int top, int width, const QColor& fore)
{
    QLabel* l = label(parent, name, QString(), left, top, width);
    l->setTextFormat(Qt::PlainText);
    colour(l, fore);
    return l;
}

// Reaching a text box by Tab selects its whole text, which is what the window wants of every box: Qt's
// line edit does that by itself, so no key handler is needed for it.
QLineEdit* input(QWidget* parent, const char* name, int maxLength, int left, int top, int width)
{
    auto* e = new QLineEdit(parent);
    e->setObjectName(QString::fromLatin1(name));
    e->setMaxLength(maxLength);
    ui::keepOneLine(e);
    // Black on white, whatever the grey of the panel underneath.
    colour(e, Qt::black, Qt::white);
    e->setAutoFillBackground(false);
    place(e, left, top, width, 285);
    return e;
}

QPushButton* button(QWidget* parent, const char* name, const QString& caption, const QString& tip, int left, int top,
                    int width, int height = 345)
{
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setToolTip(tip);
    place(b, left, top, width, height);
    return b;
}

QPlainTextEdit* notes(QWidget* parent, const char* name, int maxLength, int left, int top, int width, int height)
{
    auto* box = new QPlainTextEdit(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    box->setProperty("maxLength", maxLength);
    // Tab leaves the box as it leaves any other, instead of typing a tab into the notes.
    box->setTabChangesFocus(true);
    ui::selectOnTab(box);
    // A plain text box has no length limit of its own; what goes beyond the field's length is not taken.
    QObject::connect(box, &QPlainTextEdit::textChanged, box, [box, maxLength] {
        const QString text = box->toPlainText();
        if (text.size() <= maxLength)
            return;
        QTextCursor cursor = box->textCursor();
        const int at = std::min(cursor.position(), maxLength);
        box->setPlainText(text.left(maxLength));
        cursor = box->textCursor();
        cursor.setPosition(at);
        box->setTextCursor(cursor);
    });
    place(box, left, top, width, height);
    return box;
}

} // namespace

void FrmAddressBook::buildControls()
{
    setWindowTitle(QStringLiteral("Quillon Listings and Update"));
    setFixedSize(ui::px(9210), ui::px(5655));
    fraMain = frame(this, "fraMain", QColor(0, 0, 192));
    place(fraMain, 0, 0, 2520, 5655);
    fraRoof = frame(this, "fraRoof", listingBack);
    place(fraRoof, 2520, 0, 6690, 3060);
    fraIndividuals = frame(this, "fraIndividuals", individualBack);
    place(fraIndividuals, 2520, 3060, 6690, 2595);
    buildListingPanel();
    buildRoofPanel();
    buildIndividualsPanel();
}

void FrmAddressBook::buildListingPanel()
{
    lblAddressListings = label(fraMain, "lblAddressListings", QStringLiteral("Address Listings"), 120, 60, 2280);
    colour(lblAddressListings, Qt::white);
    QFont bold = lblAddressListings->font();
    bold.setBold(true);
    lblAddressListings->setFont(bold);
    lstAddressBook = new ui::ListBox(fraMain);
    lstAddressBook->setObjectName(QStringLiteral("lstAddressBook"));
    place(lstAddressBook, 120, 360, 2280, 3270);
    cmdAdd = button(fraMain, "cmdAdd", QStringLiteral("&Add"), QStringLiteral("Add Address"), 120, 3690, 720);
    cmdChange = button(fraMain, "cmdChange", QStringLiteral("&Change"), QStringLiteral("Change Address"), 900, 3690, 780);
    cmdDelete = button(fraMain, "cmdDelete", QStringLiteral("&Delete"), QStringLiteral("Delete Address"), 1740, 3690, 660);
    cmdAutoDial = button(fraMain, "cmdAutoDial", QStringLiteral("AutoDial"), QStringLiteral("Dial a number"), 120, 4080, 2280);
    lblShowTypes = label(fraMain, "lblShowTypes", QStringLiteral("Show Address Type:"), 120, 4530, 2280);
    colour(lblShowTypes, Qt::white);
    cmbShowTypes = new QComboBox(fraMain);
    cmbShowTypes->setObjectName(QStringLiteral("cmbShowTypes"));
    place(cmbShowTypes, 120, 4780, 2280, 315);
    lblHelp = label(fraMain, "lblHelp", QStringLiteral("Press F1 for Help"), 120, 5250, 2280);
    colour(lblHelp, yellow);
}

void FrmAddressBook::buildRoofPanel()
{
    struct Row { QLabel** caption; const char* captionName; const char* text; QLineEdit** box; const char* boxName;
                 int maxLength; QLabel** shown; const char* shownName; };
    const Row left[] = {
        {&lblName, "lblName", "Name:", &txtName, "txtName", 50, &lblDName, "lblDName"},
        {&lblType, "lblType", "Type:", nullptr, nullptr, 0, &lblDType, "lblDType"},
        {&lblAddress1, "lblAddress1", "Address:", &txtAddress1, "txtAddress1", 50, &lblDAddress1, "lblDAddress1"},
        {&lblAddress2, "lblAddress2", "Address:", &txtAddress2, "txtAddress2", 50, &lblDAddress2, "lblDAddress2"},
        {&lblCity, "lblCity", "City:", &txtCity, "txtCity", 30, &lblDCity, "lblDCity"},
        {&lblState, "lblState", "State/Prov:", &txtState, "txtState", 20, &lblDState, "lblDState"},
        {&lblZip, "lblZip", "Zip/Postal:", &txtZip, "txtZip", 20, &lblDZip, "lblDZip"},
        {&lblCountry, "lblCountry", "Country:", &txtCountry, "txtCountry", 40, &lblDCountry, "lblDCountry"}};
    const Row right[] = {
        {&lblPhone, "lblPhone", "Phone:", &txtPhone, "txtPhone", 25, &lblDPhone, "lblDPhone"},
        {&lblCell, "lblCell", "Cell:", &TxtCell, "TxtCell", 25, &lblDCell, "lblDCell"},
        {&lblFax, "lblFax", "Fax:", &txtFax, "txtFax", 20, &lblDFax, "lblDFax"},
        {&lblNameEmail, "lblNameEmail", "Email:", &txtNameEmail, "txtNameEmail", 50, &lblDNameEmail, "lblDNameEmail"},
        {&lblAnniversary, "lblAnniversary", "Imp Date:", &txtAnniversary, "txtAnniversary", 20, &lblDAnniversary,
         "lblDAnniversary"}};
    auto addRows = [this](const Row* rows, int count, int captionLeft, int valueLeft, int width) {
        for (int i = 0; i < count; ++i) {
            const Row& r = rows[i];
            const int top = 150 + i * 330;
            *r.caption = label(fraRoof, r.captionName, QString::fromLatin1(r.text), captionLeft, top + 15, valueLeft - captionLeft - 60);
            colour(*r.caption, Qt::white);
            (*r.caption)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            *r.shown = display(fraRoof, r.shownName, valueLeft, top + 15, width, yellow);
            if (r.box)
                *r.box = input(fraRoof, r.boxName, r.maxLength, valueLeft, top, width);
        }
    };
    addRows(left, 8, 60, 1140, 2340);
    addRows(right, 5, 3540, 4440, 2130);
    cmbTypes = new QComboBox(fraRoof);
    cmbTypes->setObjectName(QStringLiteral("cmbTypes"));
    place(cmbTypes, 1140, 465, 2340, 300);
    lblNotes = label(fraRoof, "lblNotes", QStringLiteral("Notes:"), 3540, 1830, 840);
    colour(lblNotes, Qt::white);
    lblNotes->setAlignment(Qt::AlignRight | Qt::AlignTop);
    txtNotes = notes(fraRoof, "txtNotes", 10000, 4440, 1800, 2130, 1140);

    lblRoofName = label(fraRoof, "lblRoofName", QStringLiteral("Family Name"), 240, 240, 6210, 330);
    lblRoofName->setTextFormat(Qt::PlainText);
    QFont bold = lblRoofName->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.2);
    lblRoofName->setFont(bold);
    lblClickOK = label(fraRoof, "lblClickOK", QStringLiteral("Make address book changes and then click OK to update"), 240, 780, 6210);
    lblRequiredFields = label(fraRoof, "lblRequiredFields",
                              QStringLiteral("Only First Name is required.  All other fields are optional."), 240, 1110, 6210);
    lblListBy = label(fraRoof, "lblListBy",
                      QStringLiteral("Leave Last Name blank if same as family last name (\"List By\")."), 240, 1440, 6210);
}

void FrmAddressBook::buildIndividualsPanel()
{
    lblIndividuals = label(fraIndividuals, "lblIndividuals", QStringLiteral("Individuals"), 120, 60, 1860);
    lstPersons = new ui::ListBox(fraIndividuals, true);
    lstPersons->setObjectName(QStringLiteral("lstPersons"));
    place(lstPersons, 120, 330, 1860, 1380);
    cmdIndAdd = button(fraIndividuals, "cmdIndAdd", QStringLiteral("Add"), QStringLiteral("Add Individual"), 120, 1770, 600);
    cmdIndChange = button(fraIndividuals, "cmdIndChange", QStringLiteral("Change"), QStringLiteral("Change Individual"), 750, 1770, 660);
    cmdIndDelete = button(fraIndividuals, "cmdIndDelete", QStringLiteral("Delete"), QStringLiteral("Delete Individual"), 1440, 1770, 600);
    // The tip is the one the window has always carried.
    cmdIndAutoDial = button(fraIndividuals, "cmdIndAutoDial", QStringLiteral("AutoDial"), QStringLiteral("Add Individual"), 120, 2160, 1920);

    struct Row { QLabel** caption; const char* captionName; const char* text; QLineEdit** box; const char* boxName;
                 int maxLength; QLabel** shown; const char* shownName; };
    const Row rows[] = {
        {&lblFirstName, "lblFirstName", "First Name:", &txtFirstName, "txtFirstName", 20, &lblDFirstName, "lblDFirstName"},
        {&lblLastName, "lblLastName", "Last Name:", &txtLastName, "txtLastName", 30, &lblDLastName, "lblDLastName"},
        {&lblWork, "lblWork", "Work:", &txtWork, "txtWork", 50, &lblDWork, "lblDWork"},
        {&lblWorkPhone, "lblWorkPhone", "W Phone:", &txtWorkPhone, "txtWorkPhone", 25, &lblDWorkPhone, "lblDWorkPhone"},
        {&lblBirthDate, "lblBirthDate", "BDate:", &txtBirthDate, "txtBirthDate", 20, &lblDBirthDate, "lblDBirthDate"},
        {&lblEmail, "lblEmail", "Email:", &txtEmail, "txtEmail", 50, &lblDEmail, "lblDEmail"}};
    for (int i = 0; i < 6; ++i) {
        const Row& r = rows[i];
        const int top = 90 + i * 300;
        *r.caption = label(fraIndividuals, r.captionName, QString::fromLatin1(r.text), 2100, top + 15, 1020);
        (*r.caption)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        *r.shown = display(fraIndividuals, r.shownName, 3180, top + 15, 3390, blue);
        *r.box = input(fraIndividuals, r.boxName, r.maxLength, 3180, top, 3390);
    }
    lblIndNotes = label(fraIndividuals, "lblIndNotes", QStringLiteral("Notes:"), 2100, 1920, 1020);
    lblIndNotes->setAlignment(Qt::AlignRight | Qt::AlignTop);
    txtIndNotes = notes(fraIndividuals, "txtIndNotes", 3000, 3180, 1920, 3390, 600);

    lblSortName = label(fraIndividuals, "lblSortName", QStringLiteral("List By:"), 120, 855, 960);
    lblSortName->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    colour(lblSortName, Qt::white);
    txtSortName = input(fraIndividuals, "txtSortName", 50, 1140, 840, 2340);
    lblSort1 = label(fraIndividuals, "lblSort1", QStringLiteral("Enter Last Name"), 3600, 720, 2940);
    lblSort2 = label(fraIndividuals, "lblSort2", QStringLiteral("Used to Alphabetize Entries"), 3600, 975, 2940);
    lblSort3 = label(fraIndividuals, "lblSort3", QString(), 3600, 1230, 2940);
    for (QLabel* l : {lblSort1, lblSort2, lblSort3})
        colour(l, yellow, listingBack);
    lblIndClickOK = label(fraIndividuals, "lblIndClickOK",
                          QStringLiteral("Make address book changes and then click OK to update!"), 240, 1560, 6210);
    lblIndRequiredFields = label(fraIndividuals, "lblIndRequiredFields",
                                 QStringLiteral("Only Name is required.  All other fields are optional."), 240, 1860, 6210);
    for (QLabel* l : {lblIndClickOK, lblIndRequiredFields})
        colour(l, Qt::white);

    cmdOK = button(fraIndividuals, "cmdOK", QStringLiteral("&OK"), QString(), 4560, 120, 840);
    cmdCancel = button(fraIndividuals, "cmdCancel", QStringLiteral("Cancel"), QString(), 5760, 120, 840);

    // The listing panel's labels are yellow on its grey; the individual's are blue on a lighter grey.
    for (QLabel* l : {lblDName, lblDType, lblDAddress1, lblDAddress2, lblDCity, lblDState, lblDZip, lblDCountry,
                      lblDPhone, lblDCell, lblDFax, lblDNameEmail, lblDAnniversary})
        colour(l, yellow, listingBack);
    for (QLabel* l : {lblDFirstName, lblDLastName, lblDWork, lblDWorkPhone, lblDBirthDate, lblDEmail})
        colour(l, blue, individualBack);
    for (QLabel* l : {lblDEmail, lblDNameEmail}) {
        l->setCursor(Qt::PointingHandCursor);
        l->installEventFilter(this);
    }
}

// The tab order of the input boxes: the listing's fields, then the individual's.
void FrmAddressBook::orderTabStops()
{
    QWidget* const chain[] = {txtName,   cmbTypes,     txtAddress1,  txtAddress2,  txtCity,     txtState,
                              txtZip,    txtCountry,   txtPhone,     TxtCell,      txtFax,      txtNameEmail,
                              txtAnniversary, txtNotes, txtSortName, txtFirstName, txtLastName, txtWork,
                              txtWorkPhone, txtBirthDate, txtEmail, txtIndNotes, cmdOK,       cmdCancel};
    for (size_t i = 0; i + 1 < std::size(chain); ++i)
        QWidget::setTabOrder(chain[i], chain[i + 1]);
}

} // namespace hb
