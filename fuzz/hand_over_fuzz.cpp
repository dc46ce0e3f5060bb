// curfile.ini reader (a link hand-over, mode 2): any lines give settings, never a crash, and
// the session's settings stay indices the connection dialog can show.
#include "base/Globals.h"
#include "base/TextFile.h"
#include "shell/HandOver.h"

#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "hand-over file: %s\n", what);
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillon;
    ResetGlobals();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const LinkHandOver h = ParseLinkHandOver(SplitTextLines(bytes));
    ApplyLinkHandOverSettings(h);
    if (g_nBaudIndex < 0 || g_nBaudIndex > 3) Fail("baud index");
    if (g_nDataBitsIndex < 0 || g_nDataBitsIndex > 1) Fail("data bits index");
    if (g_nParityIndex < 0 || g_nParityIndex > 2) Fail("parity index");
    if (g_nStopBitsIndex < 0 || g_nStopBitsIndex > 1) Fail("stop bits index");
    if (g_strStationList != h.stationText) Fail("station text");
    return 0;
}
