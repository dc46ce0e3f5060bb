#include "base/ErrorReport.h"

#include "base/Prompt.h"

#include <QString>

namespace quillon {

void ReportUnhandled(const std::exception& e) {
    Prompt().Message(QString::fromUtf8(e.what()), MessageKind::Error);
}

}  // namespace quillon
