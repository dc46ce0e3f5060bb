// quillon-cli set and page-write: the editor's pages without a window. `set` takes values into a
// project file through the checks of each value's page; `page-write` writes one parameter to a
// drive as the row's write button does, every guard and rule included.

#include "CliCommand.h"
#include "CliPrompt.h"
#include "TransferCli.h"

#include "base/Globals.h"
#include "editing/ParamPageLogic.h"
#include "link/Broadcast.h"
#include "params/ProjectFile.h"

#include <chrono>
#include <cstdio>
#include <map>
#include <memory>

namespace quillon::cli {

CliPrompt& TheCliPrompt();

namespace {

// The page and slot of a parameter code; nullptr page when no page shows it.
struct RowOnPage {
    const PageSpec* page = nullptr;
    int slot = -1;
};

RowOnPage LocateRow(const QString& code) {
    const ParamSpec* spec = FindParam(code);
    if (!spec) return {};
    const PageSpec* page = PageOfRow(spec->group, spec->row);
    return page ? RowOnPage{page, page->SlotOf(spec->row)} : RowOnPage{};
}

void Refused(const QString& code, const QString& text) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(code), qPrintable(text));
}

}  // namespace

int RunSet(const QStringList& args, QTextStream&) {
    QString input;
    QString output;
    QStringList assignments;
    for (qsizetype i = 0; i < args.size(); ++i) {
        if (args[i] == QLatin1String("-o") && i + 1 < args.size())
            output = args[++i];
        else if (args[i].contains(u'='))
            assignments << args[i];
        else if (input.isEmpty() && !args[i].startsWith(u'-'))
            input = args[i];
        else
            return UsageError(QStringLiteral("set: unexpected argument '%1'").arg(args[i]));
    }
    if (input.isEmpty() || assignments.isEmpty())
        return UsageError(QStringLiteral("set: give FILE.qpj and at least one CODE=VALUE"));
    for (const QString& a : assignments)
        if (!LocateRow(a.section(u'=', 0, 0)).page)
            return UsageError(QStringLiteral("set: no page shows '%1'").arg(a.section(u'=', 0, 0)));

    SessionState session;
    session.m_strAppDir = g_strAppDir;
    CM330Doc doc(session);
    if (const ProjectOpenResult opened = OpenProjectDocument(doc, input); !opened.ok)
        return UsageError(QStringLiteral("set: can't open %1: %2").arg(input, opened.error));

    // Every value goes through its page before anything is stored, so that one bad value leaves
    // the file as it was.
    std::map<const PageSpec*, std::unique_ptr<CParamPageLogic>> pages;
    std::vector<std::pair<CParamPageLogic*, int>> entered;
    for (const QString& a : assignments) {
        const QString code = a.section(u'=', 0, 0);
        const RowOnPage at = LocateRow(code);
        auto& logic = pages[at.page];
        if (!logic) {
            logic = std::make_unique<CParamPageLogic>(*at.page);
            logic->OnInit(doc, session.m_nModelCode);
        }
        if (const QString error = logic->EnterValue(at.slot, a.section(u'=', 1)); !error.isEmpty()) {
            Refused(code, error);
            return kExitFailed;
        }
        entered.emplace_back(logic.get(), at.slot);
    }
    for (const auto& [logic, slot] : entered) logic->SaveRow(doc, slot);
    doc.SetModifiedFlag(true);

    const QString target = output.isEmpty() ? input : output;
    QString error;
    if (!SaveProjectDocument(doc, target, error)) {
        std::fprintf(stderr, "quillon-cli: set: can't save %s: %s\n", qPrintable(target),
                     qPrintable(error));
        return kExitFailed;
    }
    return kExitOk;
}

int RunPageWrite(const QStringList& args, QTextStream&) {
    LinkOptions options;
    QStringList rest;
    if (const QString error = ParseLinkOptions(QStringLiteral("page-write"), args, options, rest);
        !error.isEmpty())
        return UsageError(error);
    if (options.port.isEmpty())
        return UsageError(QStringLiteral("page-write: give --port COMn or --tcp HOST[:PORT]"));
    bool timing = false;
    int model = kDefaultModelCode;
    QString project;
    QStringList positional;
    for (qsizetype i = 0; i < rest.size(); ++i) {
        const QString& a = rest[i];
        bool ok = true;
        if (a == QLatin1String("--yes"))
            continue;  // the page asks no question; taken for the other commands' sake
        else if (a == QLatin1String("--timing"))
            timing = true;
        else if (a == QLatin1String("--model") && i + 1 < rest.size())
            model = rest[++i].toInt(&ok);
        else if (a == QLatin1String("--project") && i + 1 < rest.size())
            project = rest[++i];
        else if (!a.startsWith(u'-') || positional.size() == 1)  // a value may be negative
            positional << a;
        else
            ok = false;
        if (!ok) return UsageError(QStringLiteral("page-write: unexpected argument '%1'").arg(a));
    }
    if (positional.size() != 2) return UsageError(QStringLiteral("page-write: give CODE VALUE"));
    const QString& code = positional[0];
    const RowOnPage at = LocateRow(code);
    if (!at.page) return UsageError(QStringLiteral("page-write: no page shows '%1'").arg(code));

    const auto t0 = std::chrono::steady_clock::now();
    SessionState session;
    PrepareSession(session, options.station);
    session.m_nModelCode = model;
    CM330Doc doc(session);
    if (!project.isEmpty()) {
        if (const ProjectOpenResult opened = OpenProjectDocument(doc, project); !opened.ok)
            return UsageError(QStringLiteral("page-write: can't open %1: %2").arg(project, opened.error));
    } else {
        doc.OnNewDocument();
    }
    CParamPageLogic page(*at.page);
    page.OnInit(doc, session.m_nModelCode);
    // A read-only row keeps its value: the button itself says so, in its place of the order.
    if (!page.Control(at.slot).spec->readOnly) {
        if (const QString error = page.EnterValue(at.slot, positional[1]); !error.isEmpty()) {
            Refused(code, error);
            return kExitFailed;
        }
    }

    CNotedLink link;
    if (!OpenLink(QStringLiteral("page-write"), options, link)) return kExitFailed;
    TheCliPrompt().SetStation(options.station);
    PageContext context{session, doc, &link, {}, 0.0f};
    const bool written = page.OnWriteButton(at.slot, context);
    if (timing) {
        const double seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        // The write itself is paced by SendFrame, or followed by the broadcast's pause.
        const double pause = options.station == 0 ? kBroadcastPauseMs / 1000.0
                                                  : kSendFramePauseMs / 1000.0;
        PrintWireTiming(link, options.baud, "page-write", seconds, written ? pause : 0.0);
    }
    return written ? kExitOk : kExitFailed;
}

}  // namespace quillon::cli
