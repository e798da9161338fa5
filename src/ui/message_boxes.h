#pragma once

// Messages and questions of the desktop program, as modal message boxes over a window.

#include <QPointer>
#include <QWidget>

#include "common/user_messages.h"

namespace zantor {

class MessageBoxes final : public UserMessages {
  public:
    explicit MessageBoxes(QWidget* parent = nullptr) : parent_(parent) {}

    // The window the boxes stand over.
    void SetParent(QWidget* parent) { parent_ = parent; }

    void ShowError(const std::string& text) override;
    void ShowInfo(const std::string& text) override;
    bool AskYesNo(const std::string& question) override;
    std::optional<std::string> AskText(const std::string& prompt, const std::string& initial,
                                       std::size_t maxLength) override;

  private:
    QPointer<QWidget> parent_;
};

}  // namespace zantor
