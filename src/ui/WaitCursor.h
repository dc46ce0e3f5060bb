#pragma once
// The wait cursor for the length of a scope, over the whole program.

#include <QApplication>

namespace quillon {

class CWaitCursor {
public:
    CWaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~CWaitCursor() { QApplication::restoreOverrideCursor(); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
};

}  // namespace quillon
