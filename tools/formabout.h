#pragma once

#include "core/forms.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace hb {

// The about window, which at the first load of the program also brings the session up.
class FormAbout : public Form {
    Q_OBJECT
public:
    FormAbout();
    static QString staticFormName() { return QStringLiteral("FormAbout"); }

    void formLoad() override;
    void cmdOK_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    void CheckDisplayAbout_Click();

    QLabel* LabelBuild;
    QCheckBox* CheckDisplayAbout;
    QPushButton* cmdOK;
    QString loadMarker_;
};

} // namespace hb
