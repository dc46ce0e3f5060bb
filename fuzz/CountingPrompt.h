#pragma once
// A prompt for the fuzzers: counts the messages instead of showing them, answers every question
// No or Cancel.

#include "base/Prompt.h"

namespace quillon::fuzz {

class CountingPrompt final : public IPrompt {
public:
    void Message(const QString&, MessageKind) override { ++messages; }
    Answer YesNoCancel(const QString&) override { return Answer::Cancel; }
    Answer YesNo(const QString&) override { return Answer::No; }
    Answer OkCancel(const QString&) override { return Answer::Cancel; }
    QString OpenFileName(const QString&, const QString&, const QString&) override { return {}; }
    QString SaveFileName(const QString&, const QString&, const QString&, const QString&) override {
        return {};
    }
    std::optional<int> ChooseStation(const QString&, const std::vector<int>&) override {
        return std::nullopt;
    }
    int messages = 0;
};

}  // namespace quillon::fuzz
