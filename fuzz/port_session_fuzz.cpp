// PZ4comfile.ini reader: any lines give a session, never a crash. What we write of that
// session reads back as the same session, each value as the file can hold it (a value can't end
// in a carriage return, which the reader takes for part of the line's end), and writing it again
// gives the same bytes.
#include "base/TextFile.h"
#include "link/PortSessionFile.h"

#include <cstdio>
#include <cstdlib>

namespace {

using namespace quillon;

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "port session file: %s\n", what);
    std::abort();
}

// A value as a line of the file brings it back.
QString AsLine(QString value) {
    while (value.endsWith(u'\r')) value.chop(1);
    return value;
}

// A name as it comes back: no name and a single blank both stand for "none".
QString AsName(const QString& name) {
    const QString line = AsLine(name);
    return line == QLatin1String(" ") ? QString() : line;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const PortSession read = ParsePortSession(SplitTextLines(bytes));
    const QByteArray written = FormatPortSession(read);
    const PortSession again = ParsePortSession(SplitTextLines(written));

    if (again.portText != AsLine(read.portText)) Fail("port text");
    if (again.mac != (again.portText == QLatin1String(kTcpPortText) ? AsLine(read.mac) : QString()))
        Fail("MAC of the linked module");
    if (again.names.size() != read.names.size()) Fail("number of names");
    for (size_t i = 0; i < read.names.size(); ++i) {
        if (again.names[i].first != AsLine(read.names[i].first)) Fail("MAC of a name");
        if (again.names[i].second != AsName(read.names[i].second)) Fail("name");
    }
    if (FormatPortSession(again) != written) Fail("writing again gives other bytes");
    return 0;
}
