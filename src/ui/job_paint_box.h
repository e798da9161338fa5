#pragma once

// A box on the screen that a print job paints on every paint event (the preview's page, the
// selection dialog's view box). A job that fails is reported once, and the box then shows only
// its white frame until it is told to try again.

#include <QWidget>
#include <exception>

#include "jobs/screen_geometry.h"
#include "ui/window_services.h"

class QPainter;

namespace zantor {

class JobPaintBox : public QWidget {
  public:
    JobPaintBox(WindowServices& services, const char* name, QWidget* parent);

    // Paints the job again at the next paint event, after a failure too.
    void TryAgain();

  protected:
    WindowServices& Services() const { return services_; }
    // Draws the job; an exception is the failure that is reported.
    virtual void PaintJob(QPainter& painter, const ScreenBox& box) = 0;

    void paintEvent(QPaintEvent* event) override;

  private:
    WindowServices& services_;
    bool failed_ = false;
};

}  // namespace zantor
