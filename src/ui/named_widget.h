#pragma once

// Widgets of the setup dialogs are found by their object names (the tests and the help look them
// up), and most carry a hint. One helper gives both.

#include <QDialog>
#include <QHBoxLayout>
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

// The setup dialogs' row of OK (the default button, accepts), Cancel (rejects) and Help, which
// these dialogs do not have yet and is shown disabled with that hint; `row` may hold buttons of
// its own on the left.
inline void AddSetupButtons(QDialog* dialog, QHBoxLayout* row, const char* okHint,
                            const char* helpCaption) {
    auto* ok = NamedButton("&OK", "OKButton", okHint);
    auto* cancel = NamedButton("&Cancel", "CancelButton", "Drop new settings");
    auto* help = NamedButton(helpCaption, "HelpButton", "(not implemented)");
    help->setEnabled(false);
    ok->setDefault(true);
    row->addStretch();
    row->addWidget(ok);
    row->addWidget(cancel);
    row->addWidget(help);
    QObject::connect(ok, &QPushButton::clicked, dialog, &QDialog::accept);
    QObject::connect(cancel, &QPushButton::clicked, dialog, &QDialog::reject);
}

}  // namespace zantor
