#include "platform/ui/buttons.h"

#include "platform/ui/twips.h"

#include <QCheckBox>
#include <QPushButton>

namespace hb::ui {

int checkValue(const QCheckBox& box)
{
    switch (box.checkState()) {
    case Qt::Checked: return 1;
    case Qt::PartiallyChecked: return 2;
    default: return 0;
    }
}

void setCheckValue(QCheckBox& box, int value)
{
    if (value == 2)
        box.setTristate(true);
    box.setCheckState(value == 1 ? Qt::Checked : value == 2 ? Qt::PartiallyChecked : Qt::Unchecked);
}

QCheckBox* checkBox(QWidget* parent, const char* name, const char* caption, int left, int top, int width)
{
    return placed(new QCheckBox(QString::fromLatin1(caption), parent), QString::fromLatin1(name), left, top,
                  width, 285);
}

QPushButton* pushButton(QWidget* parent, const char* name, const char* caption, int left, int top, int width)
{
    return placed(new QPushButton(QString::fromLatin1(caption), parent), QString::fromLatin1(name), left, top,
                  width, 375);
}

} // namespace hb::ui
