#pragma once

#include "core/forms.h"

class QGroupBox;
class QLabel;
class QPushButton;

namespace hb {

// The answers of "Import Name Already on Database". Only the window writes them and nothing resets them:
// a "Skip All" or "Change All" stands for the rest of the run, also at the next import, until the window
// is answered again.
extern bool ImportAddName;
extern bool ImportChangeName;
extern bool ImportChangeAll;
extern bool ImportSkipName;
extern bool ImportSkipAll;

// What the window shows of one listing.
struct ImportShownRow {
    QString name, type, address1, address2, city, state, zip;
};

// The question asked when a listing of an exchange file has the name of one already in the database: the
// file's row beside the database's, and five answers. Modal; each answer sets its flag and unloads it.
class FrmImport : public Form {
    Q_OBJECT
public:
    FrmImport();
    static QString staticFormName() { return QStringLiteral("frmImport"); }

    void showRows(const ImportShownRow& fileRow, const ImportShownRow& databaseRow);

private:
    void buildControls();
    QGroupBox* buildFrame(const char* name, const char* caption, int left);
    void answer(bool& flag);

    QGroupBox *Frame1, *Frame2;
    QPushButton *cmdAdd, *cmdChange, *cmdChangeAll, *cmdSkip, *cmdSkipAll;
};

} // namespace hb
