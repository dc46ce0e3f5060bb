// View > Frame log: frames logged on another thread appear in the window; once it is closed the
// link logs nothing more.

#include "link/FrameLogDlg.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>
#include <thread>

namespace quillon::test {

TEST(FrameLogDlg, ShowsFramesFromAnyThreadUntilClosed) {
    QWidget frame;
    CFrameLogDlg::ShowFor(&frame);
    CFrameLogDlg::ShowFor(&frame);  // the same window again
    const QList<CFrameLogDlg*> dlgs = frame.findChildren<CFrameLogDlg*>();
    ASSERT_EQ(dlgs.size(), 1);
    QPointer<CFrameLogDlg> dlg = dlgs.front();
    ASSERT_TRUE(FrameLogActive());

    FrameRecord r;
    r.link = QStringLiteral("COM1");
    r.sent = r.answered = QDateTime::currentDateTime();
    r.request = QByteArray::fromHex("0103");
    std::thread([&] { LogFrame(r); }).join();
    auto* text = dlg->findChild<QPlainTextEdit*>();
    QTRY_VERIFY(text->toPlainText().contains("  COM1  01 03\n"));
    EXPECT_TRUE(text->toPlainText().endsWith("(0 ms) OK"));

    dlg->close();
    QTRY_VERIFY(dlg.isNull());
    EXPECT_FALSE(FrameLogActive());
}

}  // namespace quillon::test
