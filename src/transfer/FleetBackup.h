#pragma once
// The backup of a plant's drives: every listed station on every link read as the Read command
// reads it and saved as its own project, DIR/<link>-<station>.qpj. Links run side by side, one
// worker thread and one CDriveSerial per serial line or network module; the stations of one
// link take their turn on it, as a bus allows. A station that fails is noted and the others go
// on. Each worker asks its own prompt (nothing waits on the interface thread) and builds its own
// documents; no process-wide value is written while the workers run.

#include "link/LineSettings.h"

#include <QString>
#include <vector>

namespace quillon {

class CDriveSerial;

// Where a link goes and at what line settings.
struct LinkTarget {
    QString port;  // "COMn", or "TCPIP" with `peer`
    PeerAddress peer;
    int baud = 19200;
    int dataBits = 8;
    int parity = 0;  // as InitComm takes it: 0 none, 1 odd, 2 even
    int stopBits = 2;
};

// Opens `link` on `target`; false when it can't (OpenFailureDetail says why).
bool OpenLinkTarget(const LinkTarget& target, CDriveSerial& link);

// The link's name as a file name takes it: "COM1", "127.0.0.1_10001".
QString LinkFileName(const LinkTarget& target);

struct BackupResult {
    QString link;   // LinkFileName
    int station = 0;
    QString model;  // the drive's model name; empty when it was not identified
    bool ok = false;
    QString error;  // why the station failed, one line
    double seconds = 0.0;
};

// Reads `stations` on every link of `targets` into `dir`, the catalogue files coming from
// `appDir`. The results in the order of the links, each link's stations in the order given.
std::vector<BackupResult> RunFleetBackup(const std::vector<LinkTarget>& targets,
                                         const std::vector<int>& stations, const QString& dir,
                                         const QString& appDir);

// The results as a table under a heading: link, station, model, result, seconds; then how
// many were saved.
QString FormatBackupSummary(const std::vector<BackupResult>& results);

}  // namespace quillon
