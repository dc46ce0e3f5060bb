#pragma once
// Link work off the interface thread. A transaction may wait out the link's time-out for every
// frame and a device search listens for two seconds; done on the interface thread, the windows
// would stand still that long. RunLinkWork hands such a piece of work to a worker thread and keeps
// the calling thread's events flowing (painting, timers) until it has ended, so that the caller
// goes on in its order of steps as after a plain call.
//
// The work talks to the link and fills buffers of the caller's; it never touches the document or
// a widget. A message or question it has to show goes through the prompt seam, which asks on the
// interface thread and hands the answer back.

#include <functional>

namespace quillon {

// Runs `job` on a worker and returns when it has ended; an exception it throws reaches the
// caller. Without an application, or called from another thread than the application's, `job`
// runs at once on the calling thread.
void RunLinkWork(const std::function<void()>& job);

// True while RunLinkWork waits for a job. Timers that would use the link or change the session
// under the work (supervision, auto refresh) let their tick pass.
bool LinkWorkRunning();

}  // namespace quillon
