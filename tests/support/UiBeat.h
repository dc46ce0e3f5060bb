#pragma once
// A 50 ms timer on the interface thread that notes the longest time between its ticks: how long
// the thread was kept from its events while something ran.

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <functional>

namespace quillon::test {

class UiBeat {
public:
    explicit UiBeat(std::function<void()> onTick = {}) : m_onTick(std::move(onTick)) {
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            Note();
            if (m_onTick) m_onTick();
        });
        m_timer.start(50);
        m_clock.start();
    }
    // The longest gap so far, the time since the last tick included.
    qint64 LongestGapMs() {
        Note();
        return m_longest;
    }

private:
    void Note() { m_longest = std::max(m_longest, m_clock.restart()); }

    std::function<void()> m_onTick;
    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_longest = 0;
};

}  // namespace quillon::test
