#pragma once

// The edit field of the dialogs for sizes and scales: a real number with a fixed number of
// decimals between a minimum and a maximum, and at most a given number of characters. Its value
// is a double. The decimal point is "." whatever the user's locale, as in every file and setting
// of the program.

#include <QDoubleSpinBox>

namespace zantor {

class NumericEdit : public QDoubleSpinBox {
    Q_OBJECT

  public:
    // `maxLength` 0: no limit on the characters beyond what the range needs.
    NumericEdit(int decimals, double minimum, double maximum, int maxLength = 0,
                QWidget* parent = nullptr);

    double Value() const { return value(); }
    // A value outside the range is brought to its nearer bound.
    void SetValue(double value) { setValue(value); }
};

}  // namespace zantor
