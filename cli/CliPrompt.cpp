#include "CliPrompt.h"

#include <cstdio>

namespace quillon::cli {
namespace {
void Err(const QString& text) { std::fprintf(stderr, "%s\n", text.toUtf8().constData()); }
}  // namespace

void CliPrompt::Message(const QString& text, MessageKind kind) {
    ++m_messages;
    if (m_hold && kind == MessageKind::Information)
        m_held << text;
    else
        Err(text);
}

void CliPrompt::ReleaseHeld(bool show) {
    if (show)
        for (const QString& text : m_held) Err(text);
    m_held.clear();
    m_hold = false;
}

Answer CliPrompt::Ask(const QString& text, Answer yes, Answer no) {
    const Answer a = m_yes ? yes : no;
    Err(text + (a == yes ? QStringLiteral(" [answered yes]") : QStringLiteral(" [answered no]")));
    return a;
}

Answer CliPrompt::YesNoCancel(const QString& text) { return Ask(text, Answer::Yes, Answer::Cancel); }
Answer CliPrompt::YesNo(const QString& text) { return Ask(text, Answer::Yes, Answer::No); }
Answer CliPrompt::OkCancel(const QString& text) { return Ask(text, Answer::Ok, Answer::Cancel); }

// The command line names its files itself; a dialog is never shown.
QString CliPrompt::OpenFileName(const QString&, const QString&, const QString&) { return {}; }
QString CliPrompt::SaveFileName(const QString&, const QString&, const QString&, const QString&) {
    return {};
}

std::optional<int> CliPrompt::ChooseStation(const QString&, const std::vector<int>& stations) {
    if (m_station) return m_station;
    if (!stations.empty()) return stations.front();
    return std::nullopt;
}

}  // namespace quillon::cli
