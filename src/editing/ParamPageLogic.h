#pragma once
// What a page of the parameter editor does, without its widgets: it fills its controls from the
// project, filters what is typed into its edit fields, checks its decimal fields, takes the
// values back into the project, and writes one row to a drive from the row's button, through
// the guards of the page in their fixed order.
//
// The widget (ParamPage.h) shows `Controls()` and hands every change back; a failed check asks
// the widget to put the focus on a field through `onFocusField`. Every message goes through the
// prompt seam.

#include "editing/PageTable.h"
#include "params/ParamTable.h"
#include "transfer/WriteGuards.h"

#include <QString>
#include <array>
#include <functional>
#include <optional>
#include <span>

namespace quillon {

class CDriveSerial;
class CM330Doc;
struct SessionState;

namespace PageText {
inline constexpr const char* kBeyondRange = "Beyond the range!";
inline constexpr const char* kReadOnly = "The parameter read only!";
inline constexpr const char* kNotConnected = "It is not connect with inverter!";
inline constexpr const char* kRunning = kDriveRunningText;
inline constexpr const char* kLocked = kDriveLockedText;
inline constexpr const char* kWriteSuccessful = "Write successful!";
inline constexpr const char* kStationSelect = "Station Select";
}  // namespace PageText

// One row's control as the page holds it.
struct PageControl {
    const ParamSpec* spec = nullptr;  // nullptr: an empty slot
    int row = -1;                     // the row of the group
    QString label;                    // the row's name from the project
    QString range;                    // the range text beside an edit field
    QString text;                     // edit fields: their text; digit groups: the digit string
    int index = 0;                    // combo boxes: the selected entry

    bool IsEdit() const {
        return spec && (spec->control == ControlKind::DecimalEdit ||
                        spec->control == ControlKind::IntegerEdit);
    }
};

// What a write needs of the program around the page.
struct PageContext {
    SessionState& session;
    CM330Doc& doc;
    CDriveSerial* link = nullptr;
    std::function<void()> refreshList;  // the main view's list shows the changed flags
    float driveVersion = 0.0f;          // the drive's software version, where a page reads it
};

// The input filter of a decimal field: `after` is what the field would hold after a keystroke,
// `before` what it held. Returns the text the field keeps.
QString FilterDecimalText(const QString& before, const QString& after, double upper, int decimals);
// The filter of an integer field: an empty text passes, else a whole number within the limits.
QString FilterIntegerText(const QString& before, const QString& after, double lower, double upper);

class CParamPageLogic {
public:
    explicit CParamPageLogic(const PageSpec& page);

    const PageSpec& Page() const { return m_page; }
    std::span<PageControl> Controls() { return m_controls; }
    std::span<const PageControl> Controls() const { return m_controls; }
    PageControl& Control(int slot) { return m_controls.at(static_cast<std::size_t>(slot)); }
    bool HasCheckPage() const;

    // Fills the controls from the project, with the limits of the model.
    void OnInit(const CM330Doc& doc, int modelCode);
    // The filter of the edit in `slot`; the field's new text (the old one when refused).
    QString OnEditChange(int slot, const QString& before, const QString& after) const;
    // Takes the integer fields: false when one holds no whole number within its limits (told,
    // and the field gets the focus).
    bool TakeControls();
    // The decimal fields in row order: false at the first out of its limits ("Beyond the
    // range!", the field gets the focus); a passing field is rewritten in its format.
    bool CheckPage();
    // The value text of a slot, as the project keeps it.
    QString RowText(int slot) const;
    // Takes every row into the project; flags a row as changed when it differs from what the
    // row's button last wrote, or from the project where the button wrote nothing.
    void SaveToDocument(CM330Doc& doc);
    // One row of SaveToDocument.
    void SaveRow(CM330Doc& doc, int slot);

    // Puts a value into the row's control as a person would enter it (a combo's value, a digit
    // string, a text pasted into an edit field, which passes the field's filter), and tests it
    // as the page's checks do. An empty text when the control took it, else what is wrong.
    QString EnterValue(int slot, const QString& value);

    // The row's write button. True when the value reached the drive ("Write successful!").
    bool OnWriteButton(int slot, PageContext& context);
    // The one frame of a row's write: function 6 to the row's register, or the broadcast for
    // station 0. False when the drive refused it or the line failed (told).
    bool WriteParameter(int slot, const QString& text, int station, PageContext& context);

    // The label marked red: the editor's row less ten per tab, or -1.
    int MarkedSlot() const;

    int m_selectedRow = -1;
    std::array<QString, kPageRows> m_writtenValue;
    std::array<int, kPageRows> m_written{};
    // A failed check asks for the focus (and the whole text selected) on this field.
    std::function<void(int slot)> onFocusField;

private:
    bool ReadsRunningState() const;
    bool Refuse(int slot, const QString& text);
    bool WithinLimits(const PageControl& c, LimitCheck check) const;

    const PageSpec& m_page;
    int m_nModelCode = 0;
    std::array<PageControl, kPageRows> m_controls;
};

}  // namespace quillon
