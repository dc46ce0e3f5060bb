#pragma once
// The features a subsystem adds to the main frame (its command handlers, its close hooks). The
// program registers them with the application at start-up; each new main frame installs them,
// so the frame knows commands and hooks, not the subsystems behind them.

#include <functional>
#include <vector>

namespace quillon {

class CMainFrame;

class CFrameFeatures {
public:
    using Install = std::function<void(CMainFrame&)>;

    void Add(Install install) { m_installs.push_back(std::move(install)); }
    void InstallAll(CMainFrame& frame) const {
        for (const Install& install : m_installs) install(frame);
    }

private:
    std::vector<Install> m_installs;
};

}  // namespace quillon
