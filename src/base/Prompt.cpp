#include "base/Prompt.h"

#include <cstdio>

namespace quillon {
namespace {

class FallbackPrompt final : public IPrompt {
public:
    void Message(const QString& text, MessageKind) override {
        std::fprintf(stderr, "%s\n", text.toUtf8().constData());
    }
    Answer YesNoCancel(const QString& text) override { return Say(text, Answer::Cancel); }
    Answer YesNo(const QString& text) override { return Say(text, Answer::No); }
    Answer OkCancel(const QString& text) override { return Say(text, Answer::Cancel); }
    QString OpenFileName(const QString&, const QString&, const QString&) override { return {}; }
    QString SaveFileName(const QString&, const QString&, const QString&, const QString&) override {
        return {};
    }
    std::optional<int> ChooseStation(const QString&, const std::vector<int>&) override {
        return std::nullopt;
    }

private:
    Answer Say(const QString& text, Answer a) {
        Message(text, MessageKind::Warning);
        return a;
    }
};

FallbackPrompt g_fallback;
IPrompt* g_prompt = nullptr;

}  // namespace

IPrompt& Prompt() { return g_prompt ? *g_prompt : g_fallback; }

IPrompt* SetPrompt(IPrompt* prompt) {
    IPrompt* previous = g_prompt;
    g_prompt = prompt;
    return previous;
}

}  // namespace quillon
