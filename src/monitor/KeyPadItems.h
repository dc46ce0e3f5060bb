#pragma once
// The values the keypad shows in its four monitor slots and on its LED display, all taken from
// the 16 registers read from RegMonitorBlock. One item number selects the same value for a slot
// and for the display. The lists offer the first nine; items 9 and 10 (temperature and load)
// are reached by no list and stay in the table for the display's UP and DOWN, which step over
// all eleven.

#include <QString>
#include <QStringList>
#include <vector>

namespace quillon {

inline constexpr int kKeyPadItems = 11;
inline constexpr int kKeyPadListedItems = 9;

// The nine list entries, "1: Set Frequency" to "9: ACI Input".
QStringList KeyPadItemList();

// The text of `item` from `block` (the raw 37-byte reply of the monitor block) in the monitor
// slot's format ("%.2f Hz") or the display's ("%.2f"). Empty for an item outside the table or a
// block that holds no reply yet.
QString KeyPadItemText(int item, const std::vector<unsigned char>& block, bool forDisplay);

// The display's list index after UP (`up`) or DOWN from `listIndex` (-1: no entry). UP steps to
// the next item and wraps at 11; DOWN steps back and wraps below 0 to 10. Items 9 and 10 have
// no entry, so the list then shows none and reads -1: UP goes on at 0, DOWN stays there.
int StepDisplayItem(int listIndex, bool up);

}  // namespace quillon
