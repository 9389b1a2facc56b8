#pragma once

#include "core/forms.h"

class QPushButton;

namespace hb {

namespace ui {
class ListBox;
}

// "Column Assignment": the fields still free for a column of a delimited file. Each answer writes Tag
// ("1" for OK or a double click, "2" for Cancel) and hides the window; the caller reads it and unloads.
class FormColumnSelect : public Form {
    Q_OBJECT
public:
    FormColumnSelect();
    static QString staticFormName() { return QStringLiteral("FormColumnSelect"); }

    void formLoad() override;
    ui::ListBox& items() { return *ListItems; }
    QString Tag;

    void CommandOk_Click();
    void CommandCancel_Click();
    void CommandHelp_Click();

private:
    ui::ListBox* ListItems;
    QPushButton *CommandOk, *CommandCancel, *CommandHelp;
};

} // namespace hb
