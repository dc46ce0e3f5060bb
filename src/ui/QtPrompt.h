#pragma once
// The desktop's prompt: message boxes, file dialogs and the station chooser, all modal on the
// main window.

#include "base/Prompt.h"

class QWidget;

namespace quillon {

class QtPrompt final : public IPrompt {
public:
    explicit QtPrompt(QWidget* parent = nullptr) : m_parent(parent) {}
    void SetParent(QWidget* parent) { m_parent = parent; }

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

private:
    QWidget* m_parent;
};

}  // namespace quillon
