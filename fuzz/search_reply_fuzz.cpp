// Datagrams of the device search and the address assignment, and the MAC and address texts
// around them. Any bytes are a reply or not, never a crash; what is taken from a datagram or a
// text, written again, is taken back the same.
#include "link/SearchProtocol.h"

#include <cstdio>
#include <cstdlib>

namespace {

using namespace quillon;

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "search datagram: %s\n", what);
    std::abort();
}

bool Same(const SetAddressMessage& a, const SetAddressMessage& b) {
    return a.mac == b.mac && a.address == b.address && a.status == b.status;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray datagram(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));

    if (const auto mac = SearchReplyMac(datagram)) {
        if (SearchReplyMac(SearchReply(*mac)) != mac) Fail("search reply");
        if (ParseMac(MacText(*mac)) != mac) Fail("MAC text of a reply");
    }
    if (const auto request = ParseSetAddressRequest(datagram)) {
        const auto again = ParseSetAddressRequest(SetAddressRequest(request->mac, request->address));
        if (!again || !Same(*again, *request)) Fail("address request");
    }
    if (const auto answer = ParseSetAddressAnswer(datagram)) {
        const auto again =
            ParseSetAddressAnswer(SetAddressAnswer(answer->mac, answer->address, answer->status));
        if (!again || !Same(*again, *answer)) Fail("address answer");
    }

    const QString text = QString::fromUtf8(datagram);
    if (const auto mac = ParseMac(text)) {
        if (ParseMac(MacText(*mac)) != mac) Fail("MAC text");
    }
    if (const auto address = ParseIpv4(text)) {
        if (ParseIpv4(Ipv4Text(*address)) != address) Fail("address text");
    }
    return 0;
}
