#include "exchange/frmimport.h"
#include "core/handlers.h"

#include "core/misc.h"
#include "platform/ui/captionlabel.h"
#include "platform/ui/twips.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace hb {

bool ImportAddName = false;
bool ImportChangeName = false;
bool ImportChangeAll = false;
bool ImportSkipName = false;
bool ImportSkipAll = false;

namespace {

struct Line {
    const char* heading;
    const char* headingCaption;
    const char* value;
};
constexpr Line lines[] = {{"lblName", "Name:", "lblDName"},          {"lblType", "Type:", "lblDType"},
                          {"lblAddress1", "Address:", "lblDAddress1"}, {"Label1", "Address:", "lblDAddress2"},
                          {"Label2", "City:", "lblDCity"},             {"Label3", "State/Prov:", "lblDState"},
                          {"Label4", "Zip/Postal:", "lblDZip"}};

struct Answer {
    const char* button;
    const char* caption;
    const char* label;
    const char* text;
};
constexpr Answer answers[] = {
    {"cmdAdd", "Add", "Label5", "Add to database as separate entry.  There will be two or more identical names on the database."},
    {"cmdChange", "Change", "Label6",
     "Change the current name entry with the import address, phone, fax and notes.  Type will not change."},
    {"cmdChangeAll", "Change All", "Label7", "Always change the current name entry.  Do not prompt again."},
    {"cmdSkip", "Skip", "Label8",
     "Skip processing this import name and address.  The name will NOT be added to the database."},
    {"cmdSkipAll", "Skip All", "Label9",
     "Always skip processing the import name when that name is on the database.  Do not prompt again."}};

void fill(QGroupBox* frame, const ImportShownRow& row)
{
    const QString values[] = {row.name, row.type, row.address1, row.address2, row.city, row.state, row.zip};
    for (int i = 0; i < 7; ++i) {
        if (auto* label = frame->findChild<QLabel*>(QString::fromLatin1(lines[i].value)))
            label->setText(DoubleAmpersand(values[i]));
    }
}

} // namespace

FrmImport::FrmImport() : Form(staticFormName(), false)
{
    // No close box: the question is left by one of its five answers.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setWindowTitle(QStringLiteral("Import Name Already on Database"));
    buildControls();
    connectHandler(cmdAdd, &QPushButton::clicked, this, [this] { answer(ImportAddName); });
    connectHandler(cmdChange, &QPushButton::clicked, this, [this] { answer(ImportChangeName); });
    connectHandler(cmdChangeAll, &QPushButton::clicked, this, [this] { answer(ImportChangeAll); });
    connectHandler(cmdSkip, &QPushButton::clicked, this, [this] { answer(ImportSkipName); });
    connectHandler(cmdSkipAll, &QPushButton::clicked, this, [this] { answer(ImportSkipAll); });
}

QGroupBox* FrmImport::buildFrame(const char* name, const char* caption, int left)
{
    auto* frame = ui::placed(new QGroupBox(QString::fromLatin1(caption), this), name, left, 120, 4380, 2280);
    for (int i = 0; i < 7; ++i) {
        ui::placed(new QLabel(QString::fromLatin1(lines[i].headingCaption), frame), lines[i].heading, 120, 300 + i * 270, 1080, 255);
        // Values go in doubled, as captions read a single "&" as an access key.
        auto* value = ui::placed(new ui::CaptionLabel(frame), lines[i].value, 1260, 300 + i * 270, 3000, 255);
        value->setTextFormat(Qt::PlainText);
    }
    return frame;
}

void FrmImport::buildControls()
{
    setFixedSize(ui::px(9120), ui::px(5160));
    Frame1 = buildFrame("Frame1", "Import Name and Address", 120);
    Frame2 = buildFrame("Frame2", "Current Name and Address on Database", 4620);
    QPushButton** buttons[] = {&cmdAdd, &cmdChange, &cmdChangeAll, &cmdSkip, &cmdSkipAll};
    for (int i = 0; i < 5; ++i) {
        const int top = 2580 + i * 500;
        *buttons[i] = ui::placed(new QPushButton(QString::fromLatin1(answers[i].caption), this), answers[i].button, 120, top, 1440, 375);
        // The same tip on all five, as the window has always had it.
        (*buttons[i])->setToolTip(QStringLiteral("Add Individual"));
        auto* text = ui::placed(new QLabel(QString::fromLatin1(answers[i].text), this), answers[i].label, 1680, top - 30, 7320, 440);
        text->setWordWrap(true);
    }
}

void FrmImport::showRows(const ImportShownRow& fileRow, const ImportShownRow& databaseRow)
{
    CenterForm(*this);
    fill(Frame1, fileRow);
    fill(Frame2, databaseRow);
}

void FrmImport::answer(bool& flag)
{
    ImportAddName = ImportChangeName = ImportChangeAll = ImportSkipName = ImportSkipAll = false;
    flag = true;
    forms::unload(staticFormName());
}

} // namespace hb
