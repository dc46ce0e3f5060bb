#include "monitor/GraphDlg.h"

#include "base/ErrorReport.h"
#include "exchange/ExchangeUi.h"
#include "exchange/ExportFormatDlg.h"
#include "exchange/GraphExchange.h"
#include "monitor/ParamSetDlg.h"
#include "monitor/GraphStoreData.h"
#include "monitor/ScopeWnd.h"
#include "monitor/SetTimeDlg.h"
#include "monitor/WorkerRunner.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace quillon {
namespace {

constexpr int kStripHeight = 110;

// The tool bar's pictures: simple strokes on 20 by 20 pixels.
QIcon ToolIcon(const QString& tip)
{
    QPixmap pm(20, 20);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(20, 40, 90), 2));
    if (tip == QLatin1String("Start")) {
        p.setBrush(QColor(0, 150, 0));
        p.drawPolygon(QPolygon({QPoint(5, 3), QPoint(17, 10), QPoint(5, 17)}));
    } else if (tip == QLatin1String("Stop")) {
        p.setBrush(QColor(200, 0, 0));
        p.drawRect(4, 4, 12, 12);
    } else if (tip == QLatin1String("Set")) {
        for (int y : {5, 10, 15})
            p.drawLine(3, y, 17, y);
    } else if (tip == QLatin1String("Dim Time")) {
        p.drawEllipse(3, 3, 14, 14);
        p.drawLine(10, 10, 10, 5);
        p.drawLine(10, 10, 14, 10);
    } else {
        p.drawRect(4, 3, 12, 14);
        p.drawText(QRect(4, 3, 12, 14), Qt::AlignCenter, tip.left(1));
    }
    return QIcon(pm);
}

}  // namespace

CGraphStrip::CGraphStrip(const CGraphRecorder& recorder, QWidget* parent)
    : QWidget(parent), m_recorder(recorder)
{
    setFixedHeight(kStripHeight);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CGraphStrip::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.fillRect(rect(), QColor(0, 0, 51));
    QFont font(QStringLiteral("FixedSys"));
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(13);
    p.setFont(font);
    const int column = width() / kGraphChannels;
    for (int c = 0; c < kGraphChannels; ++c) {
        const QRect cell(c * column + 8, 8, column - 16, height() - 16);
        p.setPen(CurveColour(c));
        p.drawRect(cell);
        const QString name = m_recorder.Settings().channelName[c];
        const QString text = QStringLiteral("%1\n%2\nMax: %3\nMin: %4")
                                 .arg(CurveName(c), name,
                                      QString::number(m_recorder.RunningMax(c), 'f', 2),
                                      QString::number(m_recorder.RunningMin(c), 'f', 2));
        p.drawText(cell.adjusted(6, 4, -4, -4), Qt::AlignLeft | Qt::AlignVCenter, text);
    }
}

CGraphDlg::CGraphDlg(MonitorContext context, GraphSettings& sessionSettings, QWidget* parent)
    : QDialog(parent),
      m_context(std::move(context)),
      m_session(sessionSettings),
      m_runner(std::make_unique<CWorkerRunner>(m_context.link)),
      m_recorder(std::make_unique<CGraphRecorder>(*m_runner)),
      m_tools(new QToolBar(this)),
      m_scope(new CScopeWnd(*m_recorder, this)),
      m_strip(new CGraphStrip(*m_recorder, this)),
      m_sampling(new QTimer(this)),
      m_stripTimer(new QTimer(this)),
      m_menu(new QMenu(this))
{
    setWindowTitle(QStringLiteral("Graph"));
    setObjectName(QStringLiteral("GraphDlg"));
    setSizeGripEnabled(true);
    resize(760, 520);

    // A session that never chose a station samples the first linked one.
    if (m_session.station == 0 && !m_context.stations.empty()) {
        m_session.stationIndex = 0;
        m_session.station = m_context.stations.front();
    }
    m_recorder->ApplySettings(m_session);

    m_tools->setIconSize(QSize(20, 20));
    const auto add = [this](const QString& tip, auto slot) {
        QAction* a = m_tools->addAction(ToolIcon(tip), tip);
        a->setToolTip(tip);
        connect(a, &QAction::triggered, this, Guarded(slot));
        return a;
    };
    add(QStringLiteral("Start"), [this] { OnStart(); });
    add(QStringLiteral("Stop"), [this] { OnStop(); });
    m_tools->addSeparator();
    add(QStringLiteral("Save"), [this] { OnSave(); });
    add(QStringLiteral("Set"), [this] { OnSet(); });
    add(QStringLiteral("Dim Time"), [this] { OnDimTime(); });
    add(QStringLiteral("Export"), [this] { OnExport(); });
    add(QStringLiteral("Import"), [this] { OnImport(); });
    for (const char* name : {"Set", "Start", "Stop", "Dim Time...", "Export...", "Import..."}) {
        const QString text = QString::fromLatin1(name);
        QAction* tool = Action(QString(text).remove(QStringLiteral("...")));
        QAction* a = m_menu->addAction(text);
        connect(a, &QAction::triggered, tool, &QAction::trigger);
        connect(tool, &QAction::enabledChanged, a, &QAction::setEnabled);
        a->setEnabled(tool->isEnabled());
    }

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tools);
    layout->addWidget(m_scope, 1);
    layout->addWidget(m_strip);

    m_sampling->setInterval(kGraphTickMs);
    connect(m_sampling, &QTimer::timeout, this, Guarded([this] { m_recorder->Tick(); }));
    m_stripTimer->setInterval(kGraphTickMs);
    connect(m_stripTimer, &QTimer::timeout, m_strip, qOverload<>(&QWidget::update));
    m_recorder->onSample = [this] { m_scope->OnSample(); };
    m_recorder->onStateChanged = [this] { OnStateChanged(); };
    m_scope->onArrow = [this](bool up) { up ? m_recorder->ArrowUp() : m_recorder->ArrowDown(); };
    UpdateActions();
}

CGraphDlg::~CGraphDlg()
{
    // No completion may reach the recorder once it goes.
    m_runner.reset();
}

QAction* CGraphDlg::Action(const QString& tip) const
{
    for (QAction* a : m_tools->actions())
        if (a->toolTip() == tip)
            return a;
    return nullptr;
}

bool CGraphDlg::Linked() const
{
    if (m_context.linked)
        return m_context.linked();
    return m_context.link && m_context.link() != nullptr;
}

void CGraphDlg::UpdateActions()
{
    const bool linked = Linked();
    for (const char* tip : {"Start", "Stop", "Set", "Dim Time"})
        Action(QString::fromLatin1(tip))->setEnabled(linked);
}

void CGraphDlg::OnStateChanged()
{
    if (m_recorder->IsRunning())
        m_sampling->start();
    else
        m_sampling->stop();
}

void CGraphDlg::OnStart()
{
    if (!Linked())
        return;
    m_recorder->Start();
    m_stripTimer->start();
}

void CGraphDlg::OnStop()
{
    if (!Linked())
        return;
    m_recorder->Stop();
    m_stripTimer->stop();
    m_strip->update();
}

void CGraphDlg::OnKeyPause() { m_recorder->Stop(); }

void CGraphDlg::OnSet()
{
    if (!Linked())
        return;
    CParamSetDlg dlg(m_context.stations, m_recorder->Settings(), this);
    if (dlg.exec() != QDialog::Accepted)
        return;
    m_session = dlg.Settings();
    m_recorder->ApplySettings(m_session);
    m_scope->update();
    m_strip->update();
}

void CGraphDlg::OnDimTime()
{
    if (!Linked())
        return;
    m_recorder->SetHold(true);
    CSetTimeDlg dlg(m_recorder->DivisionMs(), this);
    if (dlg.exec() == QDialog::Accepted)
        m_recorder->SetDivisionMs(dlg.DivisionMs());
    m_recorder->SetHold(false);
    m_scope->update();
}

void CGraphDlg::OnSave() { SaveWidgetPicture(*this); }

void CGraphDlg::OnExport()
{
    // The file holds the store as it stands: no sample may arrive while it is written.
    if (Linked())
        OnStop();
    CExportFormatDlg dlg(this);
    if (dlg.exec() != QDialog::Accepted)
        return;
    ExportGraph(GraphDataOf(m_recorder->Store(), m_recorder->Settings()), dlg.Format());
}

void CGraphDlg::OnImport()
{
    GraphData data;
    bool read = false;
    const ImportResult result = ImportGraph(data, &read);
    if (!read)
        return;  // cancelled, or the file could not be opened: the window keeps what it shows
    if (result == ImportResult::Done) {
        LoadGraphData(*m_recorder, data);
    } else {
        // The store is cleared before the headings are looked at; refused, they leave the
        // curves as they were, with no samples.
        const GraphSettings curves = m_recorder->Settings();
        m_recorder->LoadRows(curves, {});
    }
    m_stripTimer->stop();
    m_strip->update();
    m_scope->update();
}

void CGraphDlg::contextMenuEvent(QContextMenuEvent* event)
{
    UpdateActions();
    m_menu->popup(event->globalPos());
}

void CGraphDlg::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Pause) {
        OnKeyPause();
        return;
    }
    QDialog::keyPressEvent(event);
}

void CGraphDlg::done(int result)
{
    m_recorder->Stop();
    m_sampling->stop();
    m_stripTimer->stop();
    m_scope->RepaintTimer()->stop();
    QDialog::done(result);
}

}  // namespace quillon
