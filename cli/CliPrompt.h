#pragma once
// The command-line tool's prompt: messages go to stderr, questions are answered by the flags
// the person gave (a fixed answer per kind), never by reading the terminal.

#include "base/Prompt.h"

#include <QStringList>

namespace quillon::cli {

class CliPrompt final : public IPrompt {
public:
    // `yes`: answer Yes/OK to questions (flag --yes); otherwise No/Cancel.
    explicit CliPrompt(bool yes = false) : m_yes(yes) {}

    void Message(const QString& text, MessageKind kind) override;
    Answer YesNoCancel(const QString& text) override;
    Answer YesNo(const QString& text) override;
    Answer OkCancel(const QString& text) override;
    QString OpenFileName(const QString& caption, const QString& filter,
                         const QString& defaultSuffix) override;
    QString SaveFileName(const QString& caption, const QString& filter,
                         const QString& defaultSuffix, const QString& suggested) override;
    std::optional<int> ChooseStation(const QString& caption,
                                     const std::vector<int>& stations) override;

    // The station a command line named (--station); used by ChooseStation.
    void SetStation(std::optional<int> station) { m_station = station; }
    // Messages shown so far: a command that showed one has something to report as a failure.
    int MessageCount() const { return m_messages; }
    // From now on information messages wait for ReleaseHeld: a success that only stands once the
    // command's own last step (saving its file) has worked.
    void HoldInformation() { m_hold = true; }
    // Prints what was held (`show`) or drops it, and stops holding.
    void ReleaseHeld(bool show);

private:
    Answer Ask(const QString& text, Answer yes, Answer no);
    bool m_yes;
    int m_messages = 0;
    bool m_hold = false;
    QStringList m_held;
    std::optional<int> m_station;
};

}  // namespace quillon::cli
