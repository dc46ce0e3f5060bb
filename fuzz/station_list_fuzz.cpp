// Station list as typed in the connection dialog. Any text gives a list or a refusal with one
// message, never a crash. An accepted list holds stations 0 to 32 once each, and the text the
// status bar makes of it reads back as the same list.
#include "CountingPrompt.h"
#include "link/StationList.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace quillon;

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "station list: %s\n", what);
    std::abort();
}

using fuzz::CountingPrompt;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static CountingPrompt prompt;
    static const ScopedPrompt installed(prompt);
    prompt.messages = 0;

    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    std::vector<int> list{99};  // whatever was there before is replaced
    const int ok = ParseStationList(text, list);
    if (!ok) {
        if (!list.empty() || prompt.messages != 1) Fail("a refusal leaves a list or not one message");
        return 0;
    }
    if (prompt.messages != 0) Fail("an accepted list with a message");
    for (size_t i = 0; i < list.size(); ++i) {
        if (list[i] < 0 || list[i] > kMaxStation) Fail("station outside 0..32");
        if (std::find(list.begin() + static_cast<std::ptrdiff_t>(i) + 1, list.end(), list[i]) != list.end())
            Fail("station twice");
    }
    std::vector<int> again;
    if (!ParseStationList(JoinStations(list), again) || again != list)
        Fail("the joined list does not read back");
    return 0;
}
