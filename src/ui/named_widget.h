#pragma once

// Widgets of the setup dialogs are found by their object names (the tests and the help look them
// up), and most carry a hint. One helper gives both.

#include <QPushButton>
#include <QString>

namespace zantor {

template <typename W>
W* Named(W* widget, const char* name, const char* hint = nullptr) {
    widget->setObjectName(QString::fromLatin1(name));
    if (hint != nullptr) {
        widget->setToolTip(QString::fromLatin1(hint));
    }
    return widget;
}

// A push button with its caption, object name and hint.
inline QPushButton* NamedButton(const QString& caption, const char* name, const char* hint) {
    return Named(new QPushButton(caption), name, hint);
}

}  // namespace zantor
