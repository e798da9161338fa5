#include "ui/choice_group.h"

#include <QAbstractButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace zantor {

ChoiceGroup::ChoiceGroup(const QString& objectName, const QString& caption,
                         const QStringList& items, QWidget* parent)
    : QGroupBox(caption, parent), buttons_(new QButtonGroup(this)) {
    setObjectName(objectName);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(2);
    for (int i = 0; i < items.size(); ++i) {
        auto* button = new QRadioButton(items[i], this);
        buttons_->addButton(button, i);
        layout->addWidget(button);
    }
    connect(buttons_, &QButtonGroup::idClicked, this, &ChoiceGroup::IndexChanged);
}

void ChoiceGroup::SetIndex(int index) {
    if (QAbstractButton* button = buttons_->button(index)) {
        button->setChecked(true);
        return;
    }
    buttons_->setExclusive(false);
    for (QAbstractButton* button : buttons_->buttons()) {
        button->setChecked(false);
    }
    buttons_->setExclusive(true);
}

}  // namespace zantor
