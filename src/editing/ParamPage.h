#pragma once
// One page of the parameter editor, built from its page data: per row a write button, the
// row's name in a label that turns red when the editor marks the row, and the row's control
// (a combo box, a decimal or integer edit with its range beside it, or a digit group with its
// hint). The widget only shows and forwards: every rule is in CParamPageLogic.

#include "editing/ParamPageLogic.h"

#include <QWidget>
#include <array>
#include <functional>
#include <vector>

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QToolButton;

namespace quillon {

class CColourLabel;

class CParamPage : public QWidget {
    Q_OBJECT
public:
    explicit CParamPage(const PageSpec& page, QWidget* parent = nullptr);
    ~CParamPage() override;

    CParamPageLogic& Logic() { return m_logic; }
    const PageSpec& Page() const { return m_logic.Page(); }

    // Fills the page from the project with the limits of the model.
    void OnInit(const CM330Doc& doc, int modelCode);
    // The editor's operations: each takes the controls' contents into the logic first and
    // shows the logic's values afterwards.
    bool TakeControls();
    bool CheckPage();
    void SaveToDocument(CM330Doc& doc);
    // Where the row buttons write: the editor supplies the session, project and link at each
    // use (they can change between two clicks).
    void SetContextSource(std::function<PageContext*()> source) { m_context = std::move(source); }
    // The row's write button, as a click runs it.
    bool ClickWrite(int slot);

    // For tests and pictures: the widgets of a slot.
    QLineEdit* EditAt(int slot) const { return m_rows[static_cast<std::size_t>(slot)].edit; }
    QComboBox* ComboAt(int slot) const { return m_rows[static_cast<std::size_t>(slot)].combo; }
    CColourLabel* LabelAt(int slot) const { return m_rows[static_cast<std::size_t>(slot)].label; }
    QLabel* HintAt(int slot) const { return m_rows[static_cast<std::size_t>(slot)].hint; }
    const std::vector<QComboBox*>& DigitsAt(int slot) const {
        return m_rows[static_cast<std::size_t>(slot)].digits;
    }

private:
    struct RowWidgets {
        QToolButton* write = nullptr;
        CColourLabel* label = nullptr;
        QComboBox* combo = nullptr;
        QLineEdit* edit = nullptr;
        std::vector<QComboBox*> digits;
        QLabel* range = nullptr;
        QLabel* hint = nullptr;
        QString previous;  // the edit's text before the last keystroke
    };

    void BuildRow(int slot, QGridLayout& grid);
    QWidget* BuildDigits(int slot, const ParamSpec& spec);
    void OnTextChanged(int slot, const QString& text);
    void OnDigitChosen(int slot, int digit);
    void PullFromWidgets();
    void ShowValues();
    void FocusField(int slot);

    CParamPageLogic m_logic;
    std::array<RowWidgets, kPageRows> m_rows;
    std::function<PageContext*()> m_context;
};

}  // namespace quillon
