#pragma once
// The stations of the editor's "Transmit Group", as CWriteDlg takes them: "All Inverter" is the
// broadcast to station 0; "Single" takes a station list such as "1,3,5-12" whose stations must
// all be linked.

#include <QString>
#include <optional>
#include <vector>

namespace quillon {

// Whether `text` may stand in the station edit: digits, "," and "-" only. Any other keystroke
// puts back the text from before it.
bool IsStationListText(const QString& text);

struct TransmitStationsResult {
    std::optional<std::vector<int>> stations;  // nullopt: the dialog stays open
    bool selectEdit = false;  // the edit's text is to be selected (a station isn't linked)
};

// The OK of CWriteDlg. Refusals are told by message: an empty text with "Single" gives
// "The station num is not empty!", a text ParseStationList refuses its own message, and a
// station outside `linked` "The Station Number %d hasn't exist!!".
TransmitStationsResult TransmitStations(bool allInverter, const QString& text,
                                        const std::vector<int>& linked);

}  // namespace quillon
