#pragma once
// What the monitoring windows need of the session: its linked stations and its link, and where
// the graph watch comes from. The shell fills it (MonitorUi.h); tests fill it themselves.

#include <QWidget>
#include <functional>
#include <vector>

namespace quillon {

class CDriveSerial;

struct MonitorContext {
    std::vector<int> stations;
    std::function<CDriveSerial*()> link;
    // The session's link state; without it a window counts as linked while there is a link.
    std::function<bool()> linked;
    // Creates the graph watch as a window owned by `owner`. Empty while there is none: the
    // control panel's "Graph" button then stays disabled.
    std::function<QWidget*(QWidget* owner)> openGraph;
};

}  // namespace quillon
