#pragma once

#include "core/forms.h"

class QGroupBox;
class QLineEdit;
class QPushButton;

namespace hb {

namespace ui {
class ListBox;
}

// The upkeep of the user's address types. A child of the frame, opened with no other work window up;
// closing it brings the listings window back with fresh type lists.
class FrmNameYourOwn : public Form {
    Q_OBJECT
public:
    FrmNameYourOwn();
    static QString staticFormName() { return QStringLiteral("frmNameYourOwn"); }

    void formLoad() override;
    void formUnload() override;

    // The browsing state and the editing state, by the names the window has always had.
    void EnableText();
    void DisableText();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QGroupBox* Frame1;
    ui::ListBox* lstRoofTypes;
    QLineEdit* txtRoofType;
    QPushButton *cmdAdd, *cmdChange, *cmdDelete, *cmdOK, *cmdCancel, *cmdClose;

    QString TypeAction;          // "A" add, "C" change, "D" delete
    qint16 CurrentType = 0;      // the type being changed or deleted
    qint16 NextTypeNumber = 0;   // the number of the next new type

    void buildControls();
    void connectHandlers();
    bool typeSelected();
    qint16 listingsOfType(qint16 type);
    void removeFromList(qint16 type);
    void moveListingsToNoType(qint16 type);

    void cmdAdd_Click();
    void cmdChange_Click();
    void cmdCancel_Click();
    void cmdOK_Click();
    void addType(const QString& name);
    void renameType(const QString& name);
    void cmdDelete_Click();
    void cmdClose_Click();
};

} // namespace hb
