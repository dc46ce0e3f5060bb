#include "support/ScriptedPrompt.h"

#include <gtest/gtest.h>

namespace quillon::test {

ScriptedPrompt::ScriptedPrompt() : m_previous(SetPrompt(this)) {}

ScriptedPrompt::~ScriptedPrompt() {
    SetPrompt(m_previous);
    EXPECT_TRUE(m_queue.empty()) << m_queue.size() << " scripted answer(s) were never asked for";
}

ScriptedPrompt& ScriptedPrompt::Answer(quillon::Answer a) {
    m_queue.emplace_back(a);
    return *this;
}
ScriptedPrompt& ScriptedPrompt::FileName(QString path) {
    m_queue.emplace_back(std::move(path));
    return *this;
}
ScriptedPrompt& ScriptedPrompt::Station(std::optional<int> station) {
    m_queue.emplace_back(station);
    return *this;
}

template <typename T>
T ScriptedPrompt::Next(const QString& what, T fallback) {
    if (m_queue.empty()) {
        ADD_FAILURE() << "unexpected prompt: " << what.toStdString();
        return fallback;
    }
    Item item = m_queue.front();
    m_queue.pop_front();
    if (!std::holds_alternative<T>(item)) {
        ADD_FAILURE() << "prompt of another kind than scripted: " << what.toStdString();
        return fallback;
    }
    return std::get<T>(item);
}

void ScriptedPrompt::Message(const QString& text, MessageKind) {
    m_texts << text;
    m_messages << text;
}

quillon::Answer ScriptedPrompt::YesNoCancel(const QString& text) {
    m_texts << text;
    return Next<quillon::Answer>(text, quillon::Answer::Cancel);
}
quillon::Answer ScriptedPrompt::YesNo(const QString& text) {
    m_texts << text;
    return Next<quillon::Answer>(text, quillon::Answer::No);
}
quillon::Answer ScriptedPrompt::OkCancel(const QString& text) {
    m_texts << text;
    return Next<quillon::Answer>(text, quillon::Answer::Cancel);
}
QString ScriptedPrompt::OpenFileName(const QString& caption, const QString&, const QString&) {
    m_texts << caption;
    return Next<QString>(QStringLiteral("open dialog ") + caption, QString());
}
QString ScriptedPrompt::SaveFileName(const QString& caption, const QString&, const QString&,
                                     const QString&) {
    m_texts << caption;
    return Next<QString>(QStringLiteral("save dialog ") + caption, QString());
}
std::optional<int> ScriptedPrompt::ChooseStation(const QString& caption, const std::vector<int>&) {
    m_texts << caption;
    return Next<std::optional<int>>(QStringLiteral("station chooser ") + caption, std::nullopt);
}

}  // namespace quillon::test
