#include "support/WidgetTestSupport.h"

#include <QDir>
#include <QPixmap>

namespace quillon::test {

void SaveScreenshot(QWidget& widget, const QString& fileName)
{
    const QString dir = qEnvironmentVariable("QUILLON_SCREENSHOT_DIR");
    if (dir.isEmpty())
        return;
    QApplication::processEvents();
    const QPixmap picture = widget.grab();
    EXPECT_TRUE(picture.save(QDir(dir).filePath(fileName), "PNG")) << fileName.toStdString();
}

}  // namespace quillon::test
