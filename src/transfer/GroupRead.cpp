#include "transfer/GroupRead.h"

#include "link/ModbusFrame.h"
#include "link/RegisterReaders.h"
#include "params/M330Doc.h"
#include "transfer/TransferWindows.h"

namespace quillon {

bool ReadGroupRegisters(CDriveSerial& link, int station, int group, GroupReadout& out,
                        QString& error) {
    out.group = group;
    for (const RegisterFrame& frame : ReadFramesOf(group)) {
        std::array<std::uint16_t, kMaxRegistersPerFrame> values{};
        const ReplyVerdict verdict =
            ReadHoldingRegisters(link, station, frame.start, frame.count, ReplyCaller::GroupRead,
                                 SendForm::Direct, values.data());
        if (!verdict.ok) {
            error = verdict.text;
            return false;
        }
        for (int i = 0; i < frame.count; ++i)
            out.values.push_back(RegisterValue{frame.FirstRow() + i, values[i]});
    }
    return true;
}

void ApplyReadout(CM330Doc& doc, const GroupReadout& readout) {
    for (const RegisterValue& v : readout.values)
        doc.SetReadValue(readout.group, v.row,
                         FormatRegister(ReadFormatOf(readout.group, v.row), v.value));
}

bool ReadAllGroups(ITransferWindows& windows, CDriveSerial& link, CM330Doc& doc, int station,
                   QString& lastError) {
    IProgress& progress = windows.Progress();
    progress.SetRange(0, kRegisterGroupCount);
    progress.SetPos(0);
    for (int g = 0; g < kRegisterGroupCount; ++g) {
        progress.SetLabel(ReadProgressLabel(g, station));
        GroupReadout readout;
        QString error;
        const bool ok =
            OnLink(windows, [&] { return ReadGroupRegisters(link, station, g, readout, error); });
        ApplyReadout(doc, readout);
        if (!ok) {
            lastError = error;
            progress.Hide();
            return false;
        }
        progress.SetPos(g + 1);
    }
    return true;
}

void CopyReadToSetValues(CM330Doc& doc, bool existingOnly) {
    for (int g = 0; g < static_cast<int>(doc.m_groups.size()); ++g) {
        const auto& rows = doc.GroupAt(g).m_rows;
        for (int r = 0; r < static_cast<int>(rows.size()); ++r)
            if (!existingOnly || rows[static_cast<std::size_t>(r)].m_bExists)
                doc.SetSetValue(g, r, rows[static_cast<std::size_t>(r)].m_strReadValue,
                                RowMark::InStep);
    }
}

QString ReadProgressLabel(int group, int station) {
    const QString prefix = group == kRegisterGroupCount - 1
                               ? QStringLiteral("Fxx --")
                               : QString::asprintf("%02d-XX --", group);
    return prefix + QStringLiteral("Station Num:") + QString::number(station);
}

int CGroupReader::ReadGroup(int group, int station) {
    GroupReadout readout;
    QString error;
    const bool ok = ReadGroupRegisters(m_link, station, group, readout, error);
    // What came before a failed frame is kept.
    ApplyReadout(m_doc, readout);
    if (!ok) {
        m_strLastError = error;
        return 0;
    }
    return 1;
}

}  // namespace quillon
