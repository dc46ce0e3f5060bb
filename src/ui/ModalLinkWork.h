#pragma once
// Link work on the desktop: off the interface thread (LinkWork.h), and modal. While it runs the
// windows paint and the timers tick, but the person can start nothing else: clicks, keys,
// shortcuts, dropped files and close boxes of the program's windows are refused. A dialog that
// opens during the work (a message or a question the work asks) takes input as usual.

#include <functional>

namespace quillon {

void RunModalLinkWork(const std::function<void()>& job);

}  // namespace quillon
