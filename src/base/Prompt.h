#pragma once
// Every question the program asks and every message it shows goes through this seam. The
// desktop answers with dialogs, the command-line tool from its flags, tests from a script.
// Logic code never builds a message box itself.

#include <QString>
#include <optional>
#include <vector>

namespace quillon {

enum class Answer { Ok, Cancel, Yes, No };

enum class MessageKind { Information, Warning, Error };

class IPrompt {
public:
    virtual ~IPrompt() = default;

    // A message with an OK button.
    virtual void Message(const QString& text, MessageKind kind = MessageKind::Warning) = 0;
    // Yes / No / Cancel: returns one of the three.
    virtual Answer YesNoCancel(const QString& text) = 0;
    // Yes / No: returns Yes or No.
    virtual Answer YesNo(const QString& text) = 0;
    // OK / Cancel: returns Ok or Cancel.
    virtual Answer OkCancel(const QString& text) = 0;
    // File dialogs. `filter` is a Qt filter such as "Project File(*.qpj)"; `defaultSuffix` has no
    // dot. An empty result means the person cancelled.
    virtual QString OpenFileName(const QString& caption, const QString& filter,
                                 const QString& defaultSuffix) = 0;
    virtual QString SaveFileName(const QString& caption, const QString& filter,
                                 const QString& defaultSuffix, const QString& suggested) = 0;
    // Choice of one station of the link (drop-down "Station Num:"). nullopt on Cancel.
    virtual std::optional<int> ChooseStation(const QString& caption,
                                             const std::vector<int>& stations) = 0;
};

// The process-wide prompt. Until one is installed, a silent fallback writes messages to stderr
// and answers Cancel / No, so nothing ever blocks on a missing front end. Called on a worker
// thread while the application runs, it asks on the application's thread and waits there.
IPrompt& Prompt();
// Installs `prompt` (not owned) and returns the previous one. nullptr restores the fallback.
IPrompt* SetPrompt(IPrompt* prompt);

// Installs `prompt` (not owned) for the calling thread only, ahead of the process-wide one, and
// returns the previous one of this thread. A worker that runs a whole command by itself (one line
// of a fleet backup) asks its own prompt instead of waiting on the application's thread.
IPrompt* SetThreadPrompt(IPrompt* prompt);

// Installs a prompt for the lifetime of a scope.
class ScopedPrompt {
public:
    explicit ScopedPrompt(IPrompt& p) : m_previous(SetPrompt(&p)) {}
    ~ScopedPrompt() { SetPrompt(m_previous); }
    ScopedPrompt(const ScopedPrompt&) = delete;
    ScopedPrompt& operator=(const ScopedPrompt&) = delete;

private:
    IPrompt* m_previous;
};

// Installs a prompt of the calling thread for the lifetime of a scope.
class ScopedThreadPrompt {
public:
    explicit ScopedThreadPrompt(IPrompt& p) : m_previous(SetThreadPrompt(&p)) {}
    ~ScopedThreadPrompt() { SetThreadPrompt(m_previous); }
    ScopedThreadPrompt(const ScopedThreadPrompt&) = delete;
    ScopedThreadPrompt& operator=(const ScopedThreadPrompt&) = delete;

private:
    IPrompt* m_previous;
};

}  // namespace quillon
