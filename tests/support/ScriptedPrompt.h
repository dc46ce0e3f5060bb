#pragma once
// A prompt for tests: records every text the program shows or asks, answers from a queue the
// test fills, and fails the test on a question nobody expected.

#include "base/Prompt.h"

#include <QString>
#include <QStringList>
#include <deque>
#include <optional>
#include <variant>

namespace quillon::test {

class ScriptedPrompt final : public IPrompt {
public:
    ScriptedPrompt();
    ~ScriptedPrompt() override;

    // Queue answers, consumed in order by the next questions of any kind.
    ScriptedPrompt& Answer(quillon::Answer a);
    ScriptedPrompt& FileName(QString path);   // for the next file dialog; empty = Cancel
    ScriptedPrompt& Station(std::optional<int> station);

    // Every text shown or asked, in order (questions too).
    const QStringList& Texts() const { return m_texts; }
    QStringList Messages() const { return m_messages; }  // OK-only messages
    int PendingAnswers() const { return static_cast<int>(m_queue.size()); }

    void Message(const QString& text, MessageKind kind) override;
    quillon::Answer YesNoCancel(const QString& text) override;
    quillon::Answer YesNo(const QString& text) override;
    quillon::Answer OkCancel(const QString& text) override;
    QString OpenFileName(const QString& caption, const QString& filter,
                         const QString& defaultSuffix) override;
    QString SaveFileName(const QString& caption, const QString& filter,
                         const QString& defaultSuffix, const QString& suggested) override;
    std::optional<int> ChooseStation(const QString& caption,
                                     const std::vector<int>& stations) override;

private:
    using Item = std::variant<quillon::Answer, QString, std::optional<int>>;
    template <typename T>
    T Next(const QString& what, T fallback);

    std::deque<Item> m_queue;
    QStringList m_texts;
    QStringList m_messages;
    IPrompt* m_previous;
};

}  // namespace quillon::test
