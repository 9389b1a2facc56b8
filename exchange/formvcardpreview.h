#pragma once

#include "core/forms.h"
#include "exchange/vcardlistings.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QTreeWidget;

namespace hb {

// "vCard Import Preview": the listings the cards of a file will make, before anything is written. The
// user may turn the joining of homes off and on and sees the listings change. Import leaves "import" in
// Tag, Cancel leaves it empty; either hides the window, and the caller unloads it.
class FormVCardPreview : public Form {
    Q_OBJECT
public:
    FormVCardPreview();
    static QString staticFormName() { return QStringLiteral("FormVCardPreview"); }

    void formLoad() override;
    QString Tag;

    // The cards of the file, each read as a listing of its own; chosenType names the type of the cards
    // without a category.
    void setCards(const QVector<vcardlistings::CardListing>& cards, const QString& chosenType);
    // The listings as the window now shows them.
    QVector<vcardlistings::CardListing> listings() const;

    void CheckHouseholds_Click();
    void CommandImport_Click();
    void CommandCancel_Click();

private:
    void fill();

    QVector<vcardlistings::CardListing> cards_;
    QString chosenType_;
    QLabel* LabelSummary;
    QTreeWidget* ListPreview;
    QCheckBox* CheckHouseholds;
    QPushButton *CommandImport, *CommandCancel;
};

} // namespace hb
