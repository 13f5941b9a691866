#include "foundations/SSRibbon.h"

SSRibbon::SSRibbon(QWidget* parent) : SSRibbon(QString(), parent) {}

SSRibbon::SSRibbon(const QString& strCaption, QWidget* parent) : QPushButton(strCaption, parent) {
    setCheckable(true);
    connect(this, &QAbstractButton::clicked, this,
            [this](bool blnChecked) { emit Click(blnChecked); });
}

void SSRibbon::setValue(bool blnValue) {
    if (blnValue == isChecked())
        return;
    setChecked(blnValue);
    emit clicked(blnValue);
}
