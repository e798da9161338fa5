#pragma once

// A framed group of radio buttons with a caption, one of which is chosen: the choice boxes of the
// setup dialogs ("Stack unit", "Pinno. shown", "Grid unit", ...).

#include <QButtonGroup>
#include <QGroupBox>
#include <QStringList>

namespace zantor {

class ChoiceGroup : public QGroupBox {
    Q_OBJECT

  public:
    ChoiceGroup(const QString& objectName, const QString& caption, const QStringList& items,
                QWidget* parent = nullptr);

    // The chosen item, -1 for none.
    int Index() const { return buttons_->checkedId(); }
    // Chooses item `index`; any other value leaves none chosen.
    void SetIndex(int index);

  signals:
    void IndexChanged(int index);

  private:
    QButtonGroup* buttons_;
};

}  // namespace zantor
