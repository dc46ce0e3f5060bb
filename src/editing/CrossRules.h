#pragma once
// Parameters that may only be written in relation to others. The same rules guard two moments:
// the write button of one row on a page, and the write of a whole group (the Write command and
// the editor's "Transmit Group"). They never guard the editor's OK: a project may hold values
// that break them.
//
// A button compares the new value with the drive's registers; a group write compares either
// the texts of its own list, before anything of the group is sent, or the drive's registers
// just before the row's frame. The two moments differ in places (what they test, and the words
// of one message), and the differences are kept on purpose: both stand side by side in one row
// of the table below, so that neither can drift away from the other unseen.
//
// Values compared with the drive are scaled like the register: atof(text) times the row's
// scale, cut to a whole number, without the 0.001 a write adds (the group write nudges 01-04
// by 0.0001 as it does when sending it). The caller hands in the value it compares.

#include <QString>
#include <QtGlobal>
#include <functional>
#include <span>

namespace quillon {

enum class RuleKind {
    RunSourceZero,  // the run source 00-02 must be 0 (the frame's m_nReg0002, as last read)
    Differ,         // the row and its partner must hold different values
    FreeVfCurve,    // 01-00 must be 7 (the free V/f curve) for the row to be written
    Order,          // the value may not lie above `upper` nor below `lower` (partner rows)
};

// What the row's write button does with the rule.
enum class ButtonTest {
    None,
    Reg0002,          // test the session's m_nReg0002 (read on the page just before)
    ReadPartner,      // read the partner register; a failed read stops, nothing is compared
    Drive,            // read the partner registers and compare with the new value
    DriveAndInWrite,  // as Drive, and inside the write once more as texts
    InWrite,          // inside the write: read the partner and compare texts
};

// What a group write does with the rule.
enum class GroupTest {
    None,
    ListTexts,  // compare the two texts of the list before anything of the group is sent
    Drive,      // compare with the drive's partner registers just before the row's frame
    LeftOut,    // no message: the row is silently not sent (01-00 of the list is not 7)
};

struct CrossRule {
    int group;
    int row;
    RuleKind kind;
    int upper;         // Differ: the partner row; Order: the row the value may not exceed; -1 none
    bool upperStrict;  // Order: reaching `upper` is refused too
    int lower;         // Order: the row the value may not go below; -1 none
    ButtonTest button;
    GroupTest groupTest;
    // Texts; "%s" is filled with the row's code, then the partner's. nullptr: no such test.
    const char* buttonText;   // at the button, before the write (Reg0002: unused, see below)
    const char* inWriteText;  // at the button, inside the write
    const char* groupText;    // at a group write
};

// Every rule, grouped by row; rows of one parameter in the order they are tested.
std::span<const CrossRule> CrossRules();

// Reads register `reg` of the drive into `value`; false when the read failed. The caller
// decides what a failed read says (the rules say "Communication error!").
using PartnerReader = std::function<bool(quint16 reg, int& value)>;

// The outcome of a test: refused (or the read failed) with the text to show.
struct RuleVerdict {
    bool ok = true;
    QString text;
};

// The register of row `row` of group `group`.
constexpr quint16 RuleRegister(int group, int row) { return static_cast<quint16>(group * 256 + row); }

// --- the row's write button -----------------------------------------------------------------
// Before the write (step 10 of the button), for row `row` with its new text and scaled value.
// `reg0002` is the run source the page read just before. A failed partner read gives
// "Communication error!"; the run-source refusal gives the text of its id.
RuleVerdict ButtonRules(int group, int row, const QString& text, double scaled, int reg0002,
                        const PartnerReader& read);
// Inside the write: the partner read once more and its "%d" text compared with `text`.
RuleVerdict InWriteRules(int group, int row, const QString& text, const PartnerReader& read);

// --- a group write --------------------------------------------------------------------------
// The tests of the list's texts, before anything of `group` is sent. `rows` holds the group's
// texts by row.
RuleVerdict ListRules(int group, std::span<const QString> rows);
// The tests against the drive just before the frame that starts at `row`, with the scaled
// value that frame sends for that row.
RuleVerdict DriveRulesBeforeFrame(int group, int row, double scaled, const PartnerReader& read);
// True when the group write leaves the row out without a word (01-02..01-09 unless the list's
// 01-00 is 7).
bool LeftOutOfGroupWrite(int group, int row, std::span<const QString> rows);

}  // namespace quillon
