#include "transfer/GroupWrite.h"

#include "base/SessionState.h"
#include "base/TextConv.h"
#include "editing/CrossRules.h"
#include "link/DriveSerial.h"
#include "link/ModbusFrame.h"
#include "link/RegisterReaders.h"
#include "link/ReplyJudge.h"
#include "params/M330Doc.h"

#include <algorithm>

namespace quillon {
namespace {

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

// The cross-parameter rules of a group write stand in one table with those of the editor's
// row buttons (editing/CrossRules.h); the routine only asks it.
bool CGroupWriter::PreChecks(int group, const WriteSnapshot& snapshot, int station) {
    if (const RuleVerdict v = ListRules(group, snapshot[static_cast<std::size_t>(group)]); !v.ok)
        return Fail(v.text);
    // The run source reader tells its own failure.
    int runSource = 0;
    return group != 0 || ReadRunSource(m_link, station, runSource);
}

bool CGroupWriter::FrameChecks(int group, int firstRow, const WriteSnapshot& snapshot,
                               int station) {
    const QString& text =
        snapshot[static_cast<std::size_t>(group)][static_cast<std::size_t>(firstRow)];
    const RuleVerdict v = DriveRulesBeforeFrame(
        group, firstRow, GroupScaledValue(group, firstRow, text),
        [&](quint16 reg, int& value) { return ReadPartner(station, reg, value); });
    return v.ok || Fail(v.text);
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

    bool firstFrame = true;
    // Motor data (group 02) are left out by the Write command itself, which skips the routine.
    for (const WriteFrame& f : WriteFramesOf(group, route)) {
        const int first = f.frame.FirstRow();
        if (LeftOutOfGroupWrite(group, first, rows)) continue;
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
