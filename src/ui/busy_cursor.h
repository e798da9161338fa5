#pragma once

// The busy cursor for as long as the object lives.

#include <QApplication>

namespace zantor {

class BusyCursor {
  public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

}  // namespace zantor
