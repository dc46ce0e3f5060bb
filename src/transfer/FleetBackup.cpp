#include "transfer/FleetBackup.h"

#include "base/Prompt.h"
#include "base/SafeSave.h"
#include "base/SessionState.h"
#include "link/DriveSerial.h"
#include "params/M330Doc.h"
#include "params/ProjectFile.h"
#include "transfer/HeadlessWindows.h"
#include "transfer/TransferCommands.h"

#include <QDir>
#include <QRegularExpression>
#include <algorithm>
#include <chrono>
#include <thread>

namespace quillon {
namespace {

// A worker's prompt: the station is the one being read, questions are answered No, and the
// first warning is kept as the station's failure.
class CollectingPrompt final : public IPrompt {
public:
    void Begin(int station) {
        m_station = station;
        m_strFirst.clear();
    }
    QString First() const { return m_strFirst; }

    void Message(const QString& text, MessageKind kind) override {
        if (kind != MessageKind::Information && m_strFirst.isEmpty())
            m_strFirst = text.simplified();
    }
    Answer YesNoCancel(const QString& text) override { return Refuse(text, Answer::Cancel); }
    Answer YesNo(const QString& text) override { return Refuse(text, Answer::No); }
    Answer OkCancel(const QString& text) override { return Refuse(text, Answer::Cancel); }
    QString OpenFileName(const QString&, const QString&, const QString&) override { return {}; }
    QString SaveFileName(const QString&, const QString&, const QString&, const QString&) override {
        return {};
    }
    std::optional<int> ChooseStation(const QString&, const std::vector<int>&) override {
        return m_station;
    }

private:
    Answer Refuse(const QString& text, Answer a) {
        Message(text, MessageKind::Warning);
        return a;
    }
    int m_station = 0;
    QString m_strFirst;
};

// One station read and saved; the link is open.
void BackupStation(CDriveSerial& link, CollectingPrompt& prompt, const QString& path,
                   const QString& appDir, BackupResult& result) {
    SessionState session;
    session.m_strAppDir = appDir;
    session.m_stations = {result.station};
    session.m_bOnline = 1;
    CHeadlessWindows windows(session, link);
    CTransferCommands commands(session, windows);
    prompt.Begin(result.station);
    const bool read = commands.OnRead() && windows.Document();
    result.model = session.m_strModelName;
    if (!read) {
        result.error = prompt.First().isEmpty() ? QStringLiteral("read failed") : prompt.First();
        return;
    }
    QString error;
    result.ok = SaveProjectDocument(*windows.Document(), path, error);
    if (!result.ok) result.error = SaveFailureText(path, error);
}

// A worker's whole job: the stations of one link in turn. A link lost on the way (a module
// that went away) is opened again for the next station.
void BackupLink(const LinkTarget& target, const std::vector<int>& stations, const QString& dir,
                const QString& appDir, std::vector<BackupResult>& results) {
    CollectingPrompt prompt;
    ScopedThreadPrompt scoped(prompt);
    CDriveSerial link;
    const QString name = LinkFileName(target);
    for (const int station : stations) {
        const auto t0 = std::chrono::steady_clock::now();
        BackupResult& r = results.emplace_back();
        r.link = name;
        r.station = station;
        if (link.IsOpen() || OpenLinkTarget(target, link))
            BackupStation(link, prompt,
                          QDir(dir).filePath(QStringLiteral("%1-%2.qpj").arg(name).arg(station)),
                          appDir, r);
        else
            r.error = QStringLiteral("Can't Open the Port! ") + link.OpenFailureDetail();
        r.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    }
}

}  // namespace

bool OpenLinkTarget(const LinkTarget& t, CDriveSerial& link) {
    link.peerAddress = t.peer;
    return link.InitComm(t.port, static_cast<unsigned long>(t.baud),
                         static_cast<unsigned char>(t.dataBits),
                         static_cast<unsigned char>(t.parity), static_cast<float>(t.stopBits)) != 0;
}

QString LinkFileName(const LinkTarget& t) {
    static const QRegularExpression unsafe(QStringLiteral("[^A-Za-z0-9._-]"));
    const QString name =
        t.port.compare(QLatin1String("TCPIP"), Qt::CaseInsensitive) == 0
            ? QStringLiteral("%1_%2").arg(t.peer.AddressText()).arg(t.peer.m_nPort ? t.peer.m_nPort
                                                                                     : kModuleDataPort)
            : t.port;
    return QString(name).replace(unsafe, QStringLiteral("_"));
}

std::vector<BackupResult> RunFleetBackup(const std::vector<LinkTarget>& targets,
                                         const std::vector<int>& stations, const QString& dir,
                                         const QString& appDir) {
    std::vector<std::vector<BackupResult>> perLink(targets.size());
    {
        std::vector<std::jthread> workers;
        workers.reserve(targets.size());
        for (std::size_t i = 0; i < targets.size(); ++i)
            workers.emplace_back(BackupLink, std::cref(targets[i]), std::cref(stations),
                                 std::cref(dir), std::cref(appDir), std::ref(perLink[i]));
    }  // every worker has ended here
    std::vector<BackupResult> all;
    for (auto& results : perLink) all.insert(all.end(), results.begin(), results.end());
    return all;
}

QString FormatBackupSummary(const std::vector<BackupResult>& results) {
    std::vector<QStringList> rows{{"link", "station", "model", "result", "seconds"}};
    for (const BackupResult& r : results)
        rows.push_back({r.link, QString::number(r.station),
                        r.model.isEmpty() ? QStringLiteral("-") : r.model,
                        r.ok ? QStringLiteral("ok") : QStringLiteral("FAILED: ") + r.error,
                        QString::number(r.seconds, 'f', 2)});
    std::vector<qsizetype> width(rows.front().size(), 0);
    for (const QStringList& row : rows)
        for (qsizetype c = 0; c < row.size(); ++c)
            width[std::size_t(c)] = std::max(width[std::size_t(c)], row[c].size());
    QString text;
    for (const QStringList& row : rows) {
        QString line;
        for (qsizetype c = 0; c < row.size(); ++c)
            line += c + 1 < row.size() ? row[c].leftJustified(width[std::size_t(c)] + 2)
                                       : row[c].rightJustified(width[std::size_t(c)]);
        text += line + u'\n';
    }
    const auto failed = std::count_if(results.begin(), results.end(),
                                      [](const BackupResult& r) { return !r.ok; });
    text += QStringLiteral("%1 of %2 stations saved, %3 failed\n")
                .arg(qsizetype(results.size()) - failed)
                .arg(results.size())
                .arg(failed);
    return text;
}

}  // namespace quillon
