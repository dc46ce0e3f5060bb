#pragma once
// The search for network modules and the assignment of a module's address, over UDP port 30718
// (SearchProtocol.h). Both block their caller; both are bounded in time.
//
// The datagrams go to the search address: 255.255.255.255 unless the environment variable
// QUILLON_SEARCH_ADDRESS or SetSearchAddress names another (a subnet's broadcast address, or a
// loopback address for a module simulated on this machine).

#include "link/DeviceRecord.h"

#include <QString>
#include <vector>

namespace quillon {

inline constexpr const char* kSearchAddressEnvVar = "QUILLON_SEARCH_ADDRESS";
inline constexpr const char* kDefaultSearchAddress = "255.255.255.255";
// The search never takes longer than this, however many datagrams keep arriving.
inline constexpr int kSearchLimitMs = 10000;

QString SearchAddress();
// Empty restores the default (the environment variable, else the broadcast address).
void SetSearchAddress(const QString& address);

class ScopedSearchAddress {
public:
    explicit ScopedSearchAddress(const QString& address) { SetSearchAddress(address); }
    ~ScopedSearchAddress() { SetSearchAddress(QString()); }
    ScopedSearchAddress(const ScopedSearchAddress&) = delete;
    ScopedSearchAddress& operator=(const ScopedSearchAddress&) = delete;
};

// Clears `list`, sends the query once from port 30718 and collects every reply in order of
// arrival, duplicates included, until kSearchTimeoutMs pass without a datagram. A port that
// can't be bound or a query that can't be sent leaves the list empty, silently.
void SearchModules(std::vector<DeviceRecord>& list);

// Tells the module with `mac` to take the address `ip` and waits kSearchTimeoutMs for its
// answer. 1 when it took the address; 0 when it refused, didn't answer, or `mac` or `ip` is
// not well formed.
int AssignModuleAddress(const QString& mac, const QString& ip);

}  // namespace quillon
