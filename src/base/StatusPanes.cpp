#include "base/StatusPanes.h"

namespace quillon {
namespace {
constexpr std::array<const char*, kStatusPanes> kLabels{"File name:", "Version:", "Station Num:",
                                                        "Model:", ""};
}

QString StatusPaneLabel(int pane) {
    return pane >= 0 && pane < kStatusPanes ? QString::fromLatin1(kLabels[pane]) : QString();
}

QString StatusPaneText(int pane, const QString& text) {
    if (pane < 0 || pane >= kStatusPanes) return {};
    return StatusPaneLabel(pane) + text;
}

std::array<int, kStatusPanes> StatusPaneWidths(int clientWidth) {
    const int w = clientWidth < 0 ? 0 : clientWidth;
    std::array<int, kStatusPanes> widths{0, w / 7, w * 2 / 7, w / 7, w / 14};
    widths[0] = w - widths[1] - widths[2] - widths[3] - widths[4];
    return widths;
}

}  // namespace quillon
