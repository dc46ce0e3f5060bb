#include "editing/GroupTransmit.h"

#include "base/Prompt.h"
#include "base/SessionState.h"
#include "editing/ParamPageLogic.h"
#include "link/RegisterReaders.h"
#include "params/M330Doc.h"
#include "transfer/GroupWrite.h"
#include "transfer/WriteGuards.h"

namespace quillon {
namespace {

// One transaction through the context's link work; its result.
bool OnLink(TransmitContext& context, const std::function<bool()>& step) {
    bool ok = false;
    const auto job = [&] { ok = step(); };
    if (context.linkWork)
        context.linkWork(job);
    else
        job();
    return ok;
}

bool Guards(TransmitContext& context, CDriveSerial& link, int station) {
    if (!PassWriteGuards(link, station, [&](const auto& step) { return OnLink(context, step); }))
        return false;
    float version = 0.0f;
    if (!OnLink(context, [&] { return ReadVersion(link, station, version) != 0; })) return false;
    context.driveVersion = version;
    return true;
}

bool WriteValues(int group, TransmitContext& context, CDriveSerial& link, int station,
                 const GroupValues& values) {
    WriteSnapshot snapshot;
    FillWriteSnapshot(context.doc, snapshot, group, group);
    auto& rows = snapshot[static_cast<std::size_t>(group)];
    for (const auto& [row, text] : values)
        if (row >= 0 && row < kSnapshotRows) rows[static_cast<std::size_t>(row)] = text;
    // The writer leaves its text and 00-02 in a session of its own while it runs as link work.
    SessionState writerSession = context.session;
    writerSession.m_strLastError.clear();
    CGroupWriter writer(link, writerSession);
    const bool ok = OnLink(context, [&] {
        return writer.WriteGroup(group, snapshot, station, WriteRoute::Editor) != 0;
    });
    context.session.m_strLastError = writerSession.m_strLastError;
    context.session.m_nReg0002 = writerSession.m_nReg0002;
    return ok;
}

}  // namespace

bool TransmitGroup(int group, TransmitContext& context,
                   const std::function<std::optional<GroupValues>()>& pagesStep) {
    const std::optional<int> station = Prompt().ChooseStation(
        QString::fromLatin1(PageText::kStationSelect), context.session.m_stations);
    if (!station || !context.link) return false;
    if (!Guards(context, *context.link, *station)) return false;

    bool written = false;
    if (const std::optional<GroupValues> values = pagesStep()) {
        written = WriteValues(group, context, *context.link, *station, *values);
        if (written)
            Prompt().Message(QString::fromLatin1(PageText::kWriteSuccessful),
                             MessageKind::Information);
        else if (!context.session.m_strLastError.isEmpty())
            Prompt().Message(context.session.m_strLastError);
    }
    // Whatever the step did: the drive may hold part of the group already.
    context.doc.MarkWritten(group);
    return written;
}

}  // namespace quillon
