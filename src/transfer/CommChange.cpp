#include "transfer/CommChange.h"

#include "base/Globals.h"
#include "base/Prompt.h"
#include "base/SessionState.h"
#include "base/TextConv.h"
#include "base/TextTable.h"
#include "link/DriveSerial.h"
#include "link/LineSettings.h"
#include "link/ModbusFrame.h"
#include "link/RegisterReaders.h"
#include "link/Registers.h"
#include "link/StationList.h"
#include "transfer/TransferWindows.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

// Session parity indices.
constexpr int kSessionEven = 0;
constexpr int kSessionOdd = 1;
constexpr int kSessionNone = 2;
// Parities as the link takes them.
constexpr unsigned char kLinkNone = 0;
constexpr unsigned char kLinkOdd = 1;
constexpr unsigned char kLinkEven = 2;

int Clamp(int index, int last) { return std::clamp(index, 0, last); }

}  // namespace

CommParamChoice InitialCommChoice(int station) {
    CommParamChoice c;
    c.station = station;
    c.baudIndex = Clamp(g_nBaudIndex, 3);
    c.stopIndex = Clamp(g_nStopBitsIndex, 1);
    // Crossed against the list's own words: the session's odd opens on "1:偶位".
    c.parityList = g_nParityIndex == kSessionNone ? 0 : g_nParityIndex == kSessionOdd ? 1 : 2;
    return c;
}

int SessionParityOfList(int parityList) {
    return parityList == 1 ? kSessionEven : parityList == 2 ? kSessionOdd : kSessionNone;
}

unsigned char LinkParityOfList(int parityList) {
    return parityList == 1 ? kLinkEven : parityList == 2 ? kLinkOdd : kLinkNone;
}

QString FilterStationField(const QString& previous, const QString& typed) {
    if (typed.isEmpty()) return typed;
    const int station = Atoi(typed);
    return station >= 1 && station <= kMaxStation ? typed : previous;
}

bool ApplyCommChange(SessionState& session, ITransferWindows& windows,
                     const CommParamChoice& choice) {
    CDriveSerial* link = windows.Link();
    const int baudIndex = Clamp(choice.baudIndex, 3);
    const int stopIndex = Clamp(choice.stopIndex, 1);
    const int parityList = Clamp(choice.parityList, 2);

    // The frame goes to the first linked station; the two zero registers are fixed.
    const int target = session.m_stations.empty() ? 0 : session.m_stations.front();
    const std::array<std::uint16_t, kCommFrameRegisters> values{
        static_cast<std::uint16_t>(choice.station), 0,
        static_cast<std::uint16_t>(baudIndex),      static_cast<std::uint16_t>(stopIndex),
        static_cast<std::uint16_t>(parityList),     0};
    std::array<unsigned char, WriteMultipleLength(kCommFrameRegisters)> tx{};
    BuildWriteMultipleFrame(tx, target, RegCommBlock, values);
    std::array<unsigned char, kWriteReplyLength> rx{};
    ErrType result = ErrComm;
    if (link && !session.m_stations.empty())
        windows.LinkWork(
            [&] { result = link->CommandSend(tx.data(), tx.size(), rx.data(), rx.size()); });
    const ReplyVerdict sent =
        JudgeReply(ReplyCaller::Identification, result, rx.data(), ModbusFn::WriteMultiple, target);
    if (!sent.ok) {
        ShowVerdict(sent);
        return false;
    }

    // The drive has taken the values: the link follows it.
    session.m_stations.front() = choice.station;
    g_strStationList = QString::number(choice.station);
    const QString port = QStringLiteral("COM%1").arg(g_nComPort + 1);
    link->Close();
    if (!OnLink(windows, [&] {
            return link->InitComm(port, static_cast<unsigned long>(kBaudRates[baudIndex]), 8,
                                  LinkParityOfList(parityList), stopIndex == 0 ? 1.0f : 2.0f,
                                  kQueueSize, kQueueSize) != 0;
        })) {
        Prompt().Message(LoadText(TextId::CantOpenPort), MessageKind::Error);
        windows.DeleteLink();
        return false;
    }
    int runSource = 0;
    if (!OnLink(windows, [&] { return ReadRunSource(*link, choice.station, runSource) != 0; })) {
        link->Close();
        return false;
    }
    session.m_nReg0002 = runSource;
    Identification id;
    ReplyVerdict identified;
    windows.LinkWork([&] {
        identified = ReadIdentification(*link, choice.station, ReplyCaller::Identification, id);
    });
    if (identified.ok) {
        g_nBaudIndex = baudIndex;
        g_nStopBitsIndex = stopIndex;
        g_nParityIndex = SessionParityOfList(parityList);
        return true;
    }
    if (identified.exception) link->Close();
    ShowVerdict(identified);
    return false;
}

}  // namespace quillon
