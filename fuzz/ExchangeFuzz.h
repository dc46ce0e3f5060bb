#pragma once
// What the import fuzzers share: a prompt that keeps quiet, a document of the data files beside
// the fuzzer, built once, and the workbook imports a read workbook feeds.

#include "CountingPrompt.h"
#include "base/Globals.h"
#include "exchange/GraphData.h"
#include "exchange/ParamWorkbook.h"
#include "params/M330Doc.h"

#include <QFileInfo>
#include <memory>
#include <stdexcept>

namespace quillon::fuzz {

// The process's document of model 402 on the data files beside the fuzzer.
inline CM330Doc& FuzzDocument() {
    static CountingPrompt prompt;
    static SessionState session;
    static std::unique_ptr<CM330Doc> doc;
    if (!doc) {
        SetPrompt(&prompt);
        const QString exe = QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget();
        g_strAppDir = QFileInfo(exe).absolutePath() + u'/';
        session.m_strAppDir = g_strAppDir;
        session.m_nModelCode = 402;
        session.m_strModelName = QStringLiteral("R770-402-Kxx");
        doc = std::make_unique<CM330Doc>(session);
        doc->OnNewDocument();
    }
    return *doc;
}

// Both workbook imports; the parameter import by position may end in the range failure of a
// code beyond its group, by code in nothing.
inline void FeedWorkbook(const Workbook& book) {
    CM330Doc& doc = FuzzDocument();
    GraphData graph;
    ImportGraphWorkbook(book, graph);
    try {
        ImportParamWorkbook(doc, book);
    } catch (const std::out_of_range&) {
    }
    ImportParamWorkbook(doc, book, ImportMatch::ByCode);
}

}  // namespace quillon::fuzz
