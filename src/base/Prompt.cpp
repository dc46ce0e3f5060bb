#include "base/Prompt.h"

#include "base/ThreadHandOff.h"

#include <QCoreApplication>
#include <QThread>
#include <cstdio>
#include <type_traits>

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

IPrompt& Installed() { return g_prompt ? *g_prompt : g_fallback; }

// Runs `call` on the application's thread and waits for its result there. The call takes over
// what the worker wrote before asking; the worker takes back the answer and what the call wrote.
template <class F>
auto OnAppThread(F call) {
    using R = std::invoke_result_t<F>;
    const auto ask = [&call](auto run) {
        QMetaObject::invokeMethod(QCoreApplication::instance(), HandOverCall([&] {
                                      run();
                                      HandOff(&call);
                                  }),
                                  Qt::BlockingQueuedConnection);
        TakeHandOff(&call);
    };
    if constexpr (std::is_void_v<R>) {
        ask(call);
    } else {
        R result{};
        ask([&] { result = call(); });
        return result;
    }
}

// Link work on a worker thread asks through this one: every call goes to the application's
// thread, where the dialogs live and the installed prompt is used, and the worker waits for the
// answer. The application's thread is running its events while link work waits (LinkWork.h).
class ForwardingPrompt final : public IPrompt {
public:
    void Message(const QString& text, MessageKind kind) override {
        OnAppThread([&] { Installed().Message(text, kind); });
    }
    Answer YesNoCancel(const QString& text) override {
        return OnAppThread([&] { return Installed().YesNoCancel(text); });
    }
    Answer YesNo(const QString& text) override {
        return OnAppThread([&] { return Installed().YesNo(text); });
    }
    Answer OkCancel(const QString& text) override {
        return OnAppThread([&] { return Installed().OkCancel(text); });
    }
    QString OpenFileName(const QString& caption, const QString& filter,
                         const QString& suffix) override {
        return OnAppThread([&] { return Installed().OpenFileName(caption, filter, suffix); });
    }
    QString SaveFileName(const QString& caption, const QString& filter, const QString& suffix,
                         const QString& suggested) override {
        return OnAppThread(
            [&] { return Installed().SaveFileName(caption, filter, suffix, suggested); });
    }
    std::optional<int> ChooseStation(const QString& caption,
                                     const std::vector<int>& stations) override {
        return OnAppThread([&] { return Installed().ChooseStation(caption, stations); });
    }

};

ForwardingPrompt g_forwarding;
thread_local IPrompt* t_prompt = nullptr;

}  // namespace

IPrompt& Prompt() {
    if (t_prompt) return *t_prompt;
    const QCoreApplication* app = QCoreApplication::instance();
    if (app && QThread::currentThread() != app->thread()) return g_forwarding;
    return Installed();
}

IPrompt* SetThreadPrompt(IPrompt* prompt) {
    IPrompt* previous = t_prompt;
    t_prompt = prompt;
    return previous;
}

IPrompt* SetPrompt(IPrompt* prompt) {
    IPrompt* previous = g_prompt;
    g_prompt = prompt;
    return previous;
}

}  // namespace quillon
