#pragma once
// A network module found by the device search.

#include "link/LineSettings.h"

#include <QString>

namespace quillon {

struct DeviceRecord {
    QString mac;                // "00-20-4a-14-01-18": six bytes, lower-case hex
    QString ip;                 // the reply's sender, dotted decimal
    QString name;               // empty when found; a local name the person gives it
    PeerAddress socketAddress;  // the reply's sender as received: family, port, address
};

}  // namespace quillon
