#include "monitor/KeyPadDlg.h"

#include "base/ErrorReport.h"
#include "monitor/KeyPadItems.h"
#include "monitor/KeyPadPicture.h"
#include "monitor/WorkerRunner.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {
namespace {

// A source lamp, 14 by 14: bright green when lit, dark green when not.
class CSourceLamp final : public QWidget {
public:
    CSourceLamp(std::function<bool()> lit, QWidget* parent) : QWidget(parent), m_lit(std::move(lit))
    {
        setFixedSize(14, 14);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter p(this);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(QColor(20, 40, 20), 1));
        p.setBrush(m_lit() ? QColor(0, 255, 0) : QColor(0, 80, 0));
        p.drawRoundedRect(QRectF(0.5, 0.5, 13, 13), 2, 2);
    }

private:
    std::function<bool()> m_lit;
};

bool FocusWithinWindow(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason ||
           reason == Qt::OtherFocusReason;
}

}  // namespace

CKeyPadDlg::CKeyPadDlg(MonitorContext context, QWidget* parent)
    : QDialog(parent),
      m_context(std::move(context)),
      m_runner(std::make_unique<CWorkerRunner>(m_context.link)),
      m_keypad(std::make_unique<CKeyPad>(*m_runner, m_context.stations, 0)),
      m_timer(new QTimer(this)),
      m_picture(new CKeyPadPicture(*m_keypad, this)),
      m_display(new QComboBox(this)),
      m_frequency(new QLineEdit(this))
{
    setWindowTitle(QStringLiteral("KeyPad"));
    setObjectName(QStringLiteral("KeyPadDlg"));
    const QStringList items = KeyPadItemList();

    auto* stations = new QComboBox(this);
    for (int s : m_context.stations)
        stations->addItem(QString::number(s));
    stations->setCurrentIndex(0);
    connect(stations, &QComboBox::currentIndexChanged, this,
            Guarded([this](int index) { m_keypad->SelectStation(index); }));
    auto* stationRow = new QHBoxLayout;
    stationRow->addWidget(new QLabel(QStringLiteral("Station Num:"), this));
    stationRow->addWidget(stations, 1);

    // UP and DOWN set the list too; only the person's choice touches the edit.
    m_display->addItems(items);
    m_display->setCurrentIndex(m_keypad->DisplayIndex());
    connect(m_display, &QComboBox::activated, this,
            Guarded([this](int index) { m_keypad->OnDisplayChosen(index); }));

    auto* sources = new QGroupBox(this);
    auto* sourceGrid = new QGridLayout(sources);
    const char* sourceNames[] = {"COMM. SEQ (00-02)", "COMM. REF (00-05)"};
    for (int i = 0; i < 2; ++i) {
        m_lamps[i] = new CSourceLamp(
            [this, i] { return i == 0 ? m_keypad->RunFromLink() : m_keypad->FreqFromLink(); }, sources);
        sourceGrid->addWidget(m_lamps[i], i, 0);
        sourceGrid->addWidget(new QLabel(QString::fromLatin1(sourceNames[i]), sources), i, 1);
    }
    sourceGrid->setColumnStretch(1, 1);

    auto* monitor = new QGroupBox(QStringLiteral("Monitor"), this);
    auto* monitorGrid = new QGridLayout(monitor);
    for (int i = 0; i < 4; ++i) {
        const QString number = QStringLiteral("%1:").arg(i + 1);
        m_slots[i] = new QLineEdit(monitor);
        m_slots[i]->setReadOnly(true);
        m_slots[i]->setFocusPolicy(Qt::NoFocus);
        auto* choice = new QComboBox(monitor);
        choice->addItems(items);
        choice->setCurrentIndex(m_keypad->MonitorItem(i));
        connect(choice, &QComboBox::currentIndexChanged, this, Guarded([this, i](int item) {
                    m_keypad->SetMonitorItem(i, item);
                    OnChanged();
                }));
        monitorGrid->addWidget(new QLabel(number, monitor), i, 0);
        monitorGrid->addWidget(m_slots[i], i, 1);
        monitorGrid->addWidget(new QLabel(number, monitor), i + 4, 0);
        monitorGrid->addWidget(choice, i + 4, 1);
    }

    m_frequency->setText(m_keypad->FreqText());
    m_frequency->installEventFilter(this);
    connect(m_frequency, &QLineEdit::textEdited, this, Guarded([this](const QString& text) {
                const QString shown = m_keypad->OnFreqEdited(text);
                if (shown != text) m_frequency->setText(shown);
            }));
    connect(m_frequency, &QLineEdit::returnPressed, this, Guarded([this] { m_keypad->OnFreqEnter(); }));
    auto* freqRow = new QHBoxLayout;
    freqRow->addWidget(new QLabel(QStringLiteral("FREQ.SET"), this));
    freqRow->addWidget(m_frequency, 1);
    freqRow->addWidget(new QLabel(QStringLiteral("Hz"), this));

    // The keys' commands also stand as buttons, hidden: the picture raises them.
    const struct {
        const char* text;
        void (CKeyPad::*command)();
    } keys[] = {{"RUN", &CKeyPad::OnRun}, {"UP", &CKeyPad::OnUp},
                {"STOP/RESET", &CKeyPad::OnStop}, {"DOWN", &CKeyPad::OnDown}};
    for (const auto& k : keys) {
        auto* b = new QPushButton(QString::fromLatin1(k.text), this);
        b->setAutoDefault(false);
        b->hide();
        connect(b, &QPushButton::clicked, this, Guarded([this, c = k.command] { ((*m_keypad).*c)(); }));
    }

    auto* side = new QVBoxLayout;
    side->addLayout(stationRow);
    side->addWidget(m_display);
    side->addWidget(sources);
    side->addWidget(monitor);
    side->addLayout(freqRow);
    side->addStretch(1);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 10, 10);  // the picture at the client area's corner
    layout->addWidget(m_picture, 0, Qt::AlignTop | Qt::AlignLeft);
    layout->addSpacing(6);
    layout->addLayout(side);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    side->setContentsMargins(0, 10, 0, 0);

    m_keypad->onChanged = [this] { OnChanged(); };
    m_keypad->onTickDue = [this] { m_keypad->Tick(LeftButtonDown()); };
    m_timer->setObjectName(QStringLiteral("KeyPadTimer"));
    m_timer->setInterval(kKeyPadPollPeriodMs);
    connect(m_timer, &QTimer::timeout, this, Guarded([this] { m_keypad->Tick(LeftButtonDown()); }));
    m_timer->start();
}

CKeyPadDlg::~CKeyPadDlg()
{
    // No completion may reach the keypad once it goes, nor the edit's last focus loss.
    m_frequency->removeEventFilter(this);
    m_runner.reset();
}

bool CKeyPadDlg::LeftButtonDown() const
{
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        return m_picture->LeftButtonSeen();
    return QGuiApplication::mouseButtons() & Qt::LeftButton;
}

bool CKeyPadDlg::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_frequency && event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        const QWidget* now = QApplication::focusWidget();
        const bool toSameWindow = FocusWithinWindow(reason) && now && now->window() == this;
        GuardedCall([&] { m_keypad->OnFreqFocusLost(toSameWindow); });
    }
    return QDialog::eventFilter(watched, event);
}

void CKeyPadDlg::OnChanged()
{
    if (!m_keypad->IsPolling())
        m_timer->stop();
    m_display->setCurrentIndex(m_keypad->DisplayIndex());
    m_frequency->setEnabled(m_keypad->FreqEditEnabled());
    if (m_frequency->text() != m_keypad->FreqText())
        m_frequency->setText(m_keypad->FreqText());
    for (int i = 0; i < 4; ++i)
        m_slots[i]->setText(m_keypad->MonitorText(i));
    for (QWidget* lamp : m_lamps)
        lamp->update();
    m_picture->update();
}

void CKeyPadDlg::done(int result)
{
    m_timer->stop();
    QDialog::done(result);
}

}  // namespace quillon
