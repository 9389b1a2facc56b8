#pragma once

#include "core/forms.h"
#include "exchange/vcardlistings.h"

#include <optional>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace hb {

struct ImportCounters;

// "Import": the source, its file and the address type of an import. Every way out of an import ends in a
// rebuilt listings window.
class FormImport : public Form {
    Q_OBJECT
public:
    FormImport();
    static QString staticFormName() { return QStringLiteral("FormImport"); }

    void formLoad() override;
    void formUnload() override;

    // The channel to the comma-delimited window: the file name going in, "complete" coming back.
    QString Tag;
    bool homebookChosen() const;

    void OptionImportHomebook_Click();
    void OptionImportCD_Click();
    void OptionImportBK_Click();
    void OptionImportQuillon_Click();
    void OptionImportVCard_Click();
    void CommandBrowse_Click();
    void CommandImport_Click();
    void CommandCancel_Click();
    void CommandHelp_Click();
    // The readers of the other sources; each unloads the window after its summary.
    void ImportBK();
    void ImportHB();
    void ImportQuillon();
    void ImportVCard();

private:
    void buildControls();
    void connectControls();
    void sourceChosen(const QString& source, bool typeShown);
    QString currentSource() const;
    void runSource();
    void rebuildListings();
    // Shared by the readers of the other products' files.
    QString sourcePath() const;
    qint32 chosenType() const;
    qint32 knownType(const QString& description) const;
    void finishReader(const ImportCounters& counters);
    std::optional<QVector<vcardlistings::CardListing>> vCardListings();

    QGroupBox* Frame2;
    QRadioButton *OptionImportHomebook, *OptionImportCD, *OptionImportBK, *OptionImportQuillon, *OptionImportVCard;
    QLabel *Label3, *LabelType;
    QLineEdit* TextFileLocation;
    QComboBox* ComboCategory;
    QPushButton *CommandBrowse, *CommandImport, *CommandCancel, *CommandHelp;
};

// Where the file of a source is looked for first: the folder last used for it in this run, else the
// user's home folder.
QString importStartFolder(const QString& source);
void rememberImportFolder(const QString& source, const QString& file);
void forgetImportFolders();   // a new session starts from the home folder again

} // namespace hb
