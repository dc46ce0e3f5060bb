#include "editing/ParamPage.h"

#include "base/Language.h"
#include "editing/DigitHints.h"
#include "ui/ColourLabel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

namespace quillon {
namespace {

// The one picture every write button shows: a small arrow towards the drive.
QIcon WriteIcon() {
    static const QIcon icon = [] {
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::transparent);
        QPainter p(&pixmap);
        p.setRenderHint(QPainter::Antialiasing);
        p.setBrush(QColor(0, 96, 160));
        p.setPen(Qt::NoPen);
        const QPointF arrow[] = {{3, 4}, {9, 4}, {9, 1}, {15, 8}, {9, 15}, {9, 12}, {3, 12}};
        p.drawPolygon(arrow, 7);
        return QIcon(pixmap);
    }();
    return icon;
}

}  // namespace

CParamPage::CParamPage(const PageSpec& page, QWidget* parent) : QWidget(parent), m_logic(page) {
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    for (int s = 0; s < kPageRows; ++s) BuildRow(s, *grid);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(kPageRows, 1);
    m_logic.onFocusField = [this](int slot) { FocusField(slot); };
}

CParamPage::~CParamPage() = default;

void CParamPage::BuildRow(int slot, QGridLayout& grid) {
    const PageControl& c = m_logic.Control(slot);
    if (!c.spec) return;
    const ParamSpec& spec = *c.spec;
    RowWidgets& w = m_rows[static_cast<std::size_t>(slot)];

    w.write = new QToolButton(this);
    w.write->setIcon(WriteIcon());
    w.write->setToolTip(spec.Code());
    w.write->setAutoRaise(true);
    connect(w.write, &QToolButton::clicked, this, [this, slot] { ClickWrite(slot); });
    w.label = new CColourLabel(this);
    grid.addWidget(w.write, slot, 0);
    grid.addWidget(w.label, slot, 1);

    QWidget* control = nullptr;
    switch (spec.control) {
    case ControlKind::Combo:
        w.combo = new QComboBox(this);
        for (const char* entry : OptionsOf(spec)) w.combo->addItem(Translated("Options", entry));
        w.combo->setEnabled(!spec.readOnly);
        control = w.combo;
        break;
    case ControlKind::DigitGroup: control = BuildDigits(slot, spec); break;
    case ControlKind::DecimalEdit:
    case ControlKind::IntegerEdit:
    case ControlKind::TextEdit:
        w.edit = new QLineEdit;
        w.edit->setReadOnly(spec.readOnly || spec.control == ControlKind::TextEdit);
        w.edit->setMaximumWidth(120);
        // The filter sees every change of the text, typed or not.
        connect(w.edit, &QLineEdit::textChanged, this,
                [this, slot](const QString& text) { OnTextChanged(slot, text); });
        {
            // The range stands right beside its field, however wide the page's combo boxes are.
            auto* box = new QWidget(this);
            auto* line = new QHBoxLayout(box);
            line->setContentsMargins(0, 0, 0, 0);
            w.range = new QLabel(box);
            line->addWidget(w.edit);
            line->addWidget(w.range);
            line->addStretch();
            control = box;
        }
        break;
    case ControlKind::None: break;
    }
    if (control) grid.addWidget(control, slot, 2, w.combo ? Qt::AlignLeft : Qt::Alignment());
}

QWidget* CParamPage::BuildDigits(int slot, const ParamSpec& spec) {
    RowWidgets& w = m_rows[static_cast<std::size_t>(slot)];
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    const QStringList captions = DigitCaptions(spec);
    const int shown = ShownDigits(spec);
    const int firstShown = spec.digits.count - shown;
    for (int d = firstShown; d < spec.digits.count; ++d) {
        auto* column = new QVBoxLayout;
        if (!captions.isEmpty()) column->addWidget(new QLabel(captions.value(d), box));
        auto* digit = new QComboBox(box);
        const bool fixed = d < spec.digits.fixed;
        for (int v = 0; v < (fixed ? 1 : spec.digits.base); ++v) digit->addItem(QString::number(v));
        digit->setEnabled(!fixed && !spec.readOnly);
        connect(digit, &QComboBox::activated, this, [this, slot, d] { OnDigitChosen(slot, d); });
        column->addWidget(digit);
        row->addLayout(column);
        w.digits.push_back(digit);
    }
    for (const QString& line : DigitLegend(spec)) row->addWidget(new QLabel(line, box));
    w.hint = new QLabel(box);
    row->addWidget(w.hint);
    row->addStretch();
    return box;
}

void CParamPage::OnInit(const CM330Doc& doc, int modelCode) {
    m_logic.OnInit(doc, modelCode);
    ShowValues();
}

void CParamPage::ShowValues() {
    const int marked = m_logic.MarkedSlot();
    for (int s = 0; s < kPageRows; ++s) {
        const PageControl& c = m_logic.Control(s);
        RowWidgets& w = m_rows[static_cast<std::size_t>(s)];
        if (!c.spec) continue;
        w.label->setText(c.label);
        w.label->SetMarked(s == marked);
        if (w.combo) {
            const QSignalBlocker block(w.combo);
            w.combo->setCurrentIndex(c.index >= 0 && c.index < w.combo->count() ? c.index : -1);
        }
        if (w.edit) {
            // The page's own values are shown as they are, without the filter.
            const QSignalBlocker block(w.edit);
            w.edit->setText(c.text);
            w.previous = c.text;
        }
        if (w.range) w.range->setText(c.range);
        const int firstShown = c.spec->digits.count - static_cast<int>(w.digits.size());
        for (std::size_t d = 0; d < w.digits.size(); ++d) {
            const QSignalBlocker block(w.digits[d]);
            w.digits[d]->setCurrentIndex(c.text.mid(firstShown + static_cast<int>(d), 1).toInt());
        }
    }
}

void CParamPage::PullFromWidgets() {
    for (int s = 0; s < kPageRows; ++s) {
        PageControl& c = m_logic.Control(s);
        const RowWidgets& w = m_rows[static_cast<std::size_t>(s)];
        if (!c.spec) continue;
        if (w.combo) c.index = w.combo->currentIndex();
        if (w.edit) c.text = w.edit->text();
        if (!w.digits.empty()) {
            QString text = c.text.left(c.spec->digits.count - static_cast<int>(w.digits.size()));
            for (const QComboBox* digit : w.digits) text += QString::number(digit->currentIndex());
            c.text = text;
        }
    }
}

void CParamPage::OnTextChanged(int slot, const QString& text) {
    RowWidgets& w = m_rows[static_cast<std::size_t>(slot)];
    const QString kept = m_logic.OnEditChange(slot, w.previous, text);
    if (kept != text) {
        const QSignalBlocker block(w.edit);
        const int caret = w.edit->cursorPosition();
        w.edit->setText(kept);
        w.edit->setCursorPosition(std::min(caret, static_cast<int>(kept.size())));
    }
    w.previous = kept;
    m_logic.Control(slot).text = kept;
}

void CParamPage::OnDigitChosen(int slot, int digit) {
    PullFromWidgets();
    const PageControl& c = m_logic.Control(slot);
    const QString hint = DigitHint(*c.spec, digit + 1, c.text.mid(digit, 1).toInt());
    RowWidgets& w = m_rows[static_cast<std::size_t>(slot)];
    if (w.hint && !hint.isEmpty()) w.hint->setText(hint);
}

void CParamPage::FocusField(int slot) {
    QLineEdit* edit = EditAt(slot);
    if (!edit) return;
    ShowValues();
    edit->setFocus();
    edit->selectAll();
}

bool CParamPage::TakeControls() {
    PullFromWidgets();
    return m_logic.TakeControls();
}

bool CParamPage::CheckPage() {
    PullFromWidgets();
    const bool ok = m_logic.CheckPage();
    if (ok) ShowValues();
    return ok;
}

void CParamPage::SaveToDocument(CM330Doc& doc) {
    PullFromWidgets();
    m_logic.SaveToDocument(doc);
}

bool CParamPage::ClickWrite(int slot) {
    PageContext* context = m_context ? m_context() : nullptr;
    if (!context) return false;
    PullFromWidgets();
    const bool written = m_logic.OnWriteButton(slot, *context);
    ShowValues();
    return written;
}

}  // namespace quillon
