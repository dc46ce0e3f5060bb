#pragma once
// Helpers of the widget tests: acting on a modal dialog once it stands, and pictures of windows
// for the documentation.

#include "support/ScopedEnv.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <gtest/gtest.h>

namespace quillon::test {

// Runs `act` on the next modal dialog of type T once it is shown (looked for every 10 ms, for
// at most two seconds). `act` must close it.
template <typename T>
void OnNextModal(std::function<void(T&)> act, int attempts = 200)
{
    QTimer::singleShot(10, [act = std::move(act), attempts]() mutable {
        if (auto* dlg = qobject_cast<T*>(QApplication::activeModalWidget())) {
            act(*dlg);
            return;
        }
        if (attempts > 0)
            OnNextModal<T>(std::move(act), attempts - 1);
        else
            ADD_FAILURE() << "the expected dialog never came up";
    });
}

// With QUILLON_SCREENSHOT_DIR set, saves a picture of `widget` there as `fileName` (PNG).
void SaveScreenshot(QWidget& widget, const QString& fileName);

}  // namespace quillon::test
