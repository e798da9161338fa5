#include "ui/message_boxes.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>

namespace zantor {
namespace {

QString Caption() {
    return QApplication::applicationDisplayName().isEmpty()
               ? QStringLiteral("Zantor")
               : QApplication::applicationDisplayName();
}

// Library names and messages are 8-bit text.
QString Text(const std::string& text) {
    return QString::fromLocal8Bit(text);
}

}  // namespace

void MessageBoxes::ShowError(const std::string& text) {
    QMessageBox::critical(parent_, Caption(), Text(text));
}

void MessageBoxes::ShowInfo(const std::string& text) {
    QMessageBox::information(parent_, Caption(), Text(text));
}

bool MessageBoxes::AskYesNo(const std::string& question) {
    return QMessageBox::question(parent_, Caption(), Text(question),
                                 QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::No) == QMessageBox::Yes;
}

std::optional<std::string> MessageBoxes::AskText(const std::string& prompt,
                                                 const std::string& initial,
                                                 std::size_t maxLength) {
    bool ok = false;
    const QString answer = QInputDialog::getText(parent_, Caption(), Text(prompt),
                                                 QLineEdit::Normal, Text(initial), &ok);
    if (!ok) {
        return std::nullopt;
    }
    return answer.toLocal8Bit().toStdString().substr(0, maxLength);
}

}  // namespace zantor
