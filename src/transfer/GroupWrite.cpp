#include "transfer/GroupWrite.h"

#include "base/SessionState.h"
#include "base/TextConv.h"
#include "link/DriveSerial.h"
#include "link/ModbusFrame.h"
#include "link/RegisterReaders.h"
#include "link/ReplyJudge.h"
#include "params/M330Doc.h"

#include <algorithm>

namespace quillon {
namespace {

constexpr int kFreeVfCurve = 7;  // 01-00: the free V/f curve, whose points are written

// A frame whose row must keep its order against registers the drive holds at that moment.
// The new value is refused when it lies above `upper` (or reaches it, with `upperStrict`) or
// below `lower`; -1 names no register.
struct PartnerRule {
    int group;
    int row;  // the frame that starts at this row
    int upper;
    bool upperStrict;
    int lower;
    const char* text;
};

constexpr PartnerRule kPartnerRules[] = {
    {1, 4, -1, false, 0x0106, "when 01-04>=01-06,the parameter can be writed into inverter!"},
    {1, 5, -1, false, 0x0107, "when 01-05>=01-07,the parameter can be writed into inverter!"},
    {1, 6, 0x0104, false, 0x0108,
     "when 01-04>=01-06>=01-08,the parameter can be writed into inverter!"},
    {1, 7, 0x0105, false, 0x0109,
     "when 01-05>=01-07>=01-09,the parameter can be writed into inverter!"},
    {1, 8, 0x0106, false, -1, "when 01-06>=01-08,the parameter can be writed into inverter!"},
    // The last point speaks of 01-05 and 01-07: that is the text people have always seen.
    {1, 9, 0x0107, false, -1, "when 01-05>=01-07,the parameter can be writed into inverter!"},
    {2, 0, 0x0201, true, -1, "The value of 02-00 must be less than the value of 02-01!"},
    {2, 1, -1, false, 0x0200, "The value of 02-00 must be less than the value of 02-01!"},
};

QString CommError() { return QStringLiteral("Communication error!"); }

}  // namespace

void FillWriteSnapshot(const CM330Doc& doc, WriteSnapshot& snapshot, int firstGroup,
                       int lastGroup) {
    for (int g = firstGroup; g <= lastGroup; ++g) {
        const auto& rows = doc.GroupAt(g).m_rows;
        const std::size_t n = std::min<std::size_t>(rows.size(), kSnapshotRows);
        for (std::size_t r = 0; r < n; ++r)
            snapshot[static_cast<std::size_t>(g)][r] = rows[r].m_strSetValue;
    }
}

QString WriteProgressLabel(int group, int station) {
    return QString::asprintf("%02d-XX -- ", group) + QStringLiteral("Station Num:") +
           QString::number(station);
}

bool CGroupWriter::Fail(const QString& text) {
    m_session.m_strLastError = text;
    return false;
}

int CGroupWriter::WriteValues(std::span<const quint16> values, int station, int group, int first,
                              int count) {
    if (first < 0 || count < 1 || static_cast<std::size_t>(first + count) > values.size())
        return Fail(CommError());
    std::array<unsigned char, kMaxFrameLength> tx{};
    const int length = BuildWriteMultipleFrame(
        tx, station, ParamRegister(group, first),
        values.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(count)));
    if (length == 0) return Fail(CommError());
    std::array<unsigned char, kWriteReplyLength> rx{};
    const ErrType result =
        m_link.CommandSend(tx.data(), static_cast<unsigned long>(length), rx.data(), rx.size());
    const ReplyVerdict verdict = JudgeReply(ReplyCaller::GroupWrite, result, rx.data(),
                                            ModbusFn::WriteMultiple, station, group);
    if (!verdict.ok) return Fail(verdict.text);
    return 1;
}

bool CGroupWriter::ReadPartner(int station, quint16 reg, int& value) {
    return ReadRegister(m_link, station, reg, value) ? true : Fail(CommError());
}

bool CGroupWriter::PreChecks(int group, const WriteSnapshot& snapshot, int station) {
    const auto& rows = snapshot[static_cast<std::size_t>(group)];
    if (group == 0) {
        if (rows[2] == rows[3])
            return Fail(QStringLiteral("The value of parameter %1 and %2 can't be the same!")
                            .arg(QStringLiteral("00-02"), QStringLiteral("00-03")));
        if (rows[5] == rows[6])
            return Fail(QStringLiteral("The value of parameter 00-05 and 00-06 can't be same!"));
        // The run source reader tells its own failure.
        int runSource = 0;
        if (!ReadRunSource(m_link, station, runSource)) return false;
    }
    if (group == 10 && rows[0] == rows[1])
        return Fail(QStringLiteral("The value of parameter 10-00 and 10-01can't be same!"));
    return true;
}

bool CGroupWriter::FrameChecks(int group, int firstRow, const WriteSnapshot& snapshot,
                               int station) {
    for (const PartnerRule& rule : kPartnerRules) {
        if (rule.group != group || rule.row != firstRow) continue;
        const double value = GroupScaledValue(
            group, firstRow,
            snapshot[static_cast<std::size_t>(group)][static_cast<std::size_t>(firstRow)]);
        int upper = 0;
        int lower = 0;
        if (rule.upper >= 0 && !ReadPartner(station, static_cast<quint16>(rule.upper), upper))
            return false;
        if (rule.lower >= 0 && !ReadPartner(station, static_cast<quint16>(rule.lower), lower))
            return false;
        const bool aboveUpper =
            rule.upper >= 0 && (rule.upperStrict ? value >= upper : value > upper);
        const bool belowLower = rule.lower >= 0 && value < lower;
        if (aboveUpper || belowLower) return Fail(QString::fromLatin1(rule.text));
    }
    return true;
}

int CGroupWriter::WriteGroup(int group, const WriteSnapshot& snapshot, int station,
                             WriteRoute route) {
    if (group < 0 || group >= kSnapshotGroups) return 0;
    m_session.m_strLastError.clear();
    if (!PreChecks(group, snapshot, station)) return 0;

    std::array<quint16, kSnapshotRows> values{};
    const auto& rows = snapshot[static_cast<std::size_t>(group)];
    for (int r = 0; r < kSnapshotRows; ++r)
        values[static_cast<std::size_t>(r)] =
            GroupWriteValue(group, r, rows[static_cast<std::size_t>(r)]);
    const bool freeCurve = Atoi(snapshot[1][0]) == kFreeVfCurve;

    bool firstFrame = true;
    // Motor data (group 02) are left out by the Write command itself, which skips the routine.
    for (const WriteFrame& f : WriteFramesOf(group, route)) {
        if (f.condition == WriteCondition::FreeVfCurve && !freeCurve) continue;
        const int first = f.frame.FirstRow();
        if (!FrameChecks(group, first, snapshot, station)) return 0;
        if (!WriteValues(values, station, group, first, f.frame.count)) return 0;
        if (group == 0 && firstFrame) m_session.m_nReg0002 = Atoi(rows[2]);
        firstFrame = false;
    }
    return 1;
}

const std::array<CGroupWriter::Routine, 14>& CGroupWriter::CommandRoutines() {
    static const std::array<Routine, 14> kRoutines{
        &CGroupWriter::WriteGroup00, &CGroupWriter::WriteGroup01, &CGroupWriter::WriteGroup02,
        &CGroupWriter::WriteGroup03, &CGroupWriter::WriteGroup04, &CGroupWriter::WriteGroup05,
        &CGroupWriter::WriteGroup06, &CGroupWriter::WriteGroup07, &CGroupWriter::WriteGroup08,
        &CGroupWriter::WriteGroup09, &CGroupWriter::WriteGroup10, &CGroupWriter::WriteGroup11,
        &CGroupWriter::WriteGroup12, &CGroupWriter::WriteGroup13,
    };
    return kRoutines;
}

}  // namespace quillon
