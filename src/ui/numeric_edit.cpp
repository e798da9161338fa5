#include "ui/numeric_edit.h"

#include <QLineEdit>
#include <QLocale>

namespace zantor {

NumericEdit::NumericEdit(int decimals, double minimum, double maximum, int maxLength,
                         QWidget* parent)
    : QDoubleSpinBox(parent) {
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    setLocale(locale);
    setDecimals(decimals);
    setRange(minimum, maximum);
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    setAlignment(Qt::AlignRight);
    setKeyboardTracking(false);
    if (maxLength > 0) {
        lineEdit()->setMaxLength(maxLength);
    }
}

}  // namespace zantor
