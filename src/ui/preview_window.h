#pragma once

// TPreviewWin: the preview window. Its paint box shows the current job as on paper: the decal
// page of the first selected decal, or the first index page. The window keeps a page's portrait
// shape: its width follows its height.

#include <QDialog>
#include <string>
#include <vector>

#include "ui/window_services.h"

class QPushButton;

namespace zantor {

// The preview's width for a window `height` pixels high: height x 0.707, rounded to the nearest
// whole pixel, ties to even (500 -> 354).
int PreviewWidthForHeight(int height);

class PreviewPaintBox;

class TPreviewWin : public QDialog {
    Q_OBJECT

  public:
    TPreviewWin(WindowServices& services, std::vector<std::string> selection,
                QWidget* parent = nullptr);

    QWidget* PaintBox() const;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    PreviewPaintBox* PrevWin = nullptr;
    QWidget* Panel2 = nullptr;
    QPushButton* btnClose = nullptr;
};

}  // namespace zantor
