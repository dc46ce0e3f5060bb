#include "shell/HandOver.h"

#include "base/CommSettings.h"
#include "base/Globals.h"
#include "base/Prompt.h"
#include "base/StatusPanes.h"
#include "base/TextConv.h"
#include "base/TextFile.h"
#include "base/TextTable.h"
#include "link/LinkSession.h"
#include "link/RegisterReaders.h"
#include "shell/ProjectCommands.h"

#include <QDir>
#include <QFile>
#include <algorithm>

namespace quillon {
namespace {

QString Line(const std::vector<QString>& lines, std::size_t index)
{
    return index < lines.size() ? lines[index] : QString();
}

// The digit at `index` of line 4; -1 when it isn't one.
int DigitAt(const QString& digits, qsizetype index)
{
    return index < digits.size() && digits[index].isDigit() ? digits[index].digitValue() : -1;
}

int BaudIndex(int baud)
{
    switch (baud) {
    case 4800: return 0;
    case 9600: return 1;
    case 38400: return 3;
    default: return 2;
    }
}

void TakeOver(const std::vector<QString>& lines, CProjectCommands& commands, CLinkSession& link)
{
    const LinkHandOver h = ParseLinkHandOver(lines);
    ApplyLinkHandOverSettings(h);
    SessionState& session = link.Session();
    session.m_nFreqClass = h.freqClass;
    session.m_stations.push_back(h.station);
    SaveCommSettings();

    CDriveSerial& serial = link.EnsureLink();
    // The raw values go to the link: a digit that is none becomes a value it refuses.
    if (!serial.InitComm(h.portName, static_cast<unsigned long>(std::max(h.baud, 0)),
                         static_cast<unsigned char>(h.dataBits),
                         static_cast<unsigned char>(h.parity), static_cast<float>(h.stopBits),
                         kQueueSize, kQueueSize)) {
        QString text = LoadText(TextId::CantOpenPort);
        if (!serial.OpenFailureDetail().isEmpty())
            text += QStringLiteral("\n\n") + serial.OpenFailureDetail();
        Prompt().Message(text, MessageKind::Error);
        link.DeleteLink();
        return;
    }
    int version = 0;
    if (!link.OpenLink(h.station, version)) {
        link.CloseLink();
        return;
    }
    commands.NewDocumentForLinkedDrive();
    session.m_bOnline = 1;
    session.m_strStationText = QString::number(h.station);
    ILinkWindows& windows = link.Windows();
    windows.SetStatusPane(Pane::Version, VersionText(version));
    windows.SetStatusPane(Pane::Stations, session.m_strStationText);
    windows.SetStatusPane(Pane::Model, session.m_strModelName);
    windows.SetStatusPane(Pane::Link, QString::fromLatin1(kOnlineText));
}

}  // namespace

QString HandOverFilePath()
{
    return QDir::tempPath() + QStringLiteral("/curfile.ini");
}

std::optional<std::vector<QString>> TakeHandOverFile(const QString& path)
{
    auto lines = ReadTextLines(path);
    if (lines)
        QFile::remove(path);
    return lines;
}

LinkHandOver ParseLinkHandOver(const std::vector<QString>& lines)
{
    LinkHandOver h;
    h.portName = Line(lines, 1);
    h.comNumber = Atoi(QStringView(h.portName).mid(3));
    h.baud = Atoi(Line(lines, 2));
    const QString digits = Line(lines, 3);
    h.dataBits = DigitAt(digits, 0);
    h.parity = DigitAt(digits, 1);
    h.stopBits = DigitAt(digits, 2);
    h.stationText = Line(lines, 4);
    h.station = Atoi(h.stationText);
    h.freqClass = Atoi(Line(lines, 5));
    return h;
}

void ApplyLinkHandOverSettings(const LinkHandOver& h)
{
    // The number itself, not reduced by one as the connection dialog stores it.
    g_nComPort = h.comNumber;
    g_nBaudIndex = BaudIndex(h.baud);
    if (h.dataBits == 7 || h.dataBits == 8)
        g_nDataBitsIndex = h.dataBits - 7;
    if (h.parity >= 0 && h.parity <= 2)
        g_nParityIndex = 2 - h.parity;
    if (h.stopBits == 1 || h.stopBits == 2)
        g_nStopBitsIndex = h.stopBits - 1;
    g_strStationList = h.stationText;
}

void HonourHandOver(const std::vector<QString>& lines, CProjectCommands& commands,
                    CLinkSession& link)
{
    if (lines.empty())
        return;
    const QString mode = lines.front();
    if (mode == QLatin1String("1")) {
        if (lines.size() > 1)
            commands.OpenProjectFile(lines[1]);
    } else if (mode == QLatin1String("2")) {
        TakeOver(lines, commands, link);
    }
}

}  // namespace quillon
