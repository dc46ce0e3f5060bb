// The application's event dispatch as the last line of defence: an exception that escapes an
// event handler reaches CM330App::notify, is shown, and the program keeps dispatching events.
//
// Our own handlers and slots catch their errors before Qt's code sees them (Guarded,
// GuardedCall); this path is for whatever still slips through. Unwinding through Qt's libraries,
// which are built without exception support, skips their clean-ups and leaves a few small
// allocations behind; leak detection is off for what the throwing presses allocate.

#include "support/LeakCheck.h"
#include "support/ScriptedPrompt.h"

#include <QMouseEvent>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>
#include <stdexcept>

using quillon::test::ScriptedPrompt;

namespace {
// A window of our own whose mouse handler runs into the range failure, as a list would on a
// row that is not there.
class FailingWidget : public QWidget {
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override {
        ++presses;
        throw std::out_of_range("invalid vector<T> subscript");
    }
};
}  // namespace

TEST(LastResort, ExceptionEscapingAHandlerIsShownAndTheSessionGoesOn) {
    ScriptedPrompt prompt;
    FailingWidget widget;
    widget.resize(100, 40);
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    {
        quillon::test::ScopedLeakCheckOff unwindingThroughQt;
        QTest::mousePress(&widget, Qt::LeftButton);
        QTest::mousePress(&widget, Qt::LeftButton);  // the program still dispatches events
    }
    EXPECT_EQ(widget.presses, 2);
    EXPECT_EQ(prompt.Messages(), (QStringList{"invalid vector<T> subscript", "invalid vector<T> subscript"}));
}

