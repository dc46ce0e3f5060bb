#include "transfer/TransferDialogs.h"

#include "base/ErrorReport.h"
#include "base/Language.h"
#include "base/Prompt.h"
#include "base/SessionState.h"
#include "base/TextConv.h"
#include "transfer/Password.h"
#include "transfer/TransmitStations.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace quillon {
namespace {

constexpr int kProgressWidth = 320;

// OK and Cancel; OK runs the dialog's accept(), which checks before it closes.
QDialogButtonBox* OkCancel(QDialog* dlg) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dlg);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dlg, Guarded([dlg] { dlg->accept(); }));
    QObject::connect(buttons, &QDialogButtonBox::rejected, dlg, Guarded([dlg] { dlg->reject(); }));
    return buttons;
}

QLineEdit* NewPasswordEdit(QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setMaxLength(kPasswordLength);
    edit->setEchoMode(QLineEdit::Password);
    return edit;
}

// Shows the check's text when it failed; true when the dialog may close.
bool Passed(const std::optional<QString>& failed) {
    if (!failed) return true;
    Prompt().Message(*failed);
    return false;
}

}  // namespace

QPoint ProgressOrigin(const QRect& mainWindow, int fifths) {
    return QPoint(mainWindow.left() + mainWindow.width() / 3,
                  mainWindow.top() + mainWindow.height() - fifths * mainWindow.height() / 5);
}

// ---- progress ------------------------------------------------------------------------------

CProgressDlg::CProgressDlg(QWidget* mainWindow)
    : QDialog(mainWindow, Qt::Tool),
      m_mainWindow(mainWindow),
      m_label(new QLabel(this)),
      m_bar(new QProgressBar(this)) {
    setObjectName(QStringLiteral("ProgressDlg"));
    setModal(false);
    m_bar->setTextVisible(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
    setFixedWidth(kProgressWidth);
}

void CProgressDlg::Show(const QString& title) {
    setWindowTitle(title);
    if (m_mainWindow) move(ProgressOrigin(m_mainWindow->frameGeometry()));
    show();
    repaint();
}

void CProgressDlg::SetRange(int lower, int upper) { m_bar->setRange(lower, upper); }

void CProgressDlg::SetPos(int pos) {
    m_bar->setValue(pos);
    m_bar->repaint();
}

void CProgressDlg::SetLabel(const QString& label) {
    m_label->setText(label);
    repaint();
}

// ---- station dialog of the transmit --------------------------------------------------------

CWriteDlg::CWriteDlg(const std::vector<int>& linked, QWidget* parent)
    : QDialog(parent),
      m_linked(linked),
      m_single(new QRadioButton(QStringLiteral("Single"), this)),
      m_all(new QRadioButton(QStringLiteral("All Inverter"), this)),
      m_edit(new QLineEdit(this)) {
    setWindowTitle(QStringLiteral("Write"));
    m_single->setChecked(true);
    // Digits, "," and "-" only: any other keystroke puts back the text from before it.
    connect(m_edit, &QLineEdit::textEdited, this, Guarded([this](const QString& text) {
                if (IsStationListText(text)) {
                    m_lastGood = text;
                    return;
                }
                const int cursor = std::max(0, m_edit->cursorPosition() - 1);
                m_edit->setText(m_lastGood);
                m_edit->setCursorPosition(std::min(cursor, static_cast<int>(m_lastGood.size())));
            }));
    auto* radios = new QHBoxLayout;
    radios->addWidget(m_single);
    radios->addWidget(m_all);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(radios);
    layout->addWidget(m_edit);
    layout->addWidget(
        new QLabel(QStringLiteral("(Single or specified range, e.g.: 1,3,5-12)"), this));
    layout->addWidget(OkCancel(this));
}

void CWriteDlg::accept() {
    const TransmitStationsResult result =
        TransmitStations(m_all->isChecked(), m_edit->text(), m_linked);
    if (!result.stations) {
        if (result.selectEdit) {
            m_edit->setFocus();
            m_edit->selectAll();
        }
        return;
    }
    m_result = *result.stations;
    QDialog::accept();
}

// ---- motor parameters left out -------------------------------------------------------------

CUnwrittenParamDlg::CUnwrittenParamDlg(const std::vector<MotorParam>& params, QWidget* parent)
    : QDialog(parent), m_list(new QTableWidget(static_cast<int>(params.size()), 2, this)) {
    setWindowTitle(Translated("Caption", "未写入马达参数"));
    m_list->setHorizontalHeaderLabels({QStringLiteral("Code"), QStringLiteral("Parameter Name")});
    m_list->verticalHeader()->hide();
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->horizontalHeader()->setStretchLastSection(true);
    for (int i = 0; i < static_cast<int>(params.size()); ++i) {
        m_list->setItem(i, 0, new QTableWidgetItem(params[static_cast<std::size_t>(i)].m_strCode));
        m_list->setItem(i, 1, new QTableWidgetItem(params[static_cast<std::size_t>(i)].m_strName));
    }
    auto* ok = new QPushButton(Translated("Caption", "确定"), this);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, Guarded([this] { QDialog::accept(); }));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(ok, 0, Qt::AlignRight);
    resize(420, 260);
}

// ---- password dialogs ----------------------------------------------------------------------

CPasswordSetDlg::CPasswordSetDlg(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Password Set"));
    auto* form = new QFormLayout(this);
    m_edits = {NewPasswordEdit(this), NewPasswordEdit(this)};
    form->addRow(QStringLiteral("Password:"), m_edits[0]);
    form->addRow(QStringLiteral("Repeat:"), m_edits[1]);
    form->addRow(OkCancel(this));
}

QString CPasswordSetDlg::Password() const { return m_edits[0]->text(); }

void CPasswordSetDlg::accept() {
    if (Passed(CheckPasswordSet(m_edits[0]->text(), m_edits[1]->text()))) QDialog::accept();
}

CChangePasswordDlg::CChangePasswordDlg(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Change Password"));
    auto* group = new QGroupBox(QStringLiteral("Modify"), this);
    auto* form = new QFormLayout(group);
    m_edits = {NewPasswordEdit(group), NewPasswordEdit(group), NewPasswordEdit(group)};
    form->addRow(QStringLiteral("Old:"), m_edits[0]);
    form->addRow(QStringLiteral("New:"), m_edits[1]);
    form->addRow(QStringLiteral("Repeat:"), m_edits[2]);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(group);
    layout->addWidget(OkCancel(this));
}

ChangePasswordEntry CChangePasswordDlg::Entry() const {
    return ChangePasswordEntry{m_edits[0]->text(), m_edits[1]->text()};
}

void CChangePasswordDlg::accept() {
    if (Passed(CheckChangePassword(m_edits[0]->text(), m_edits[1]->text(), m_edits[2]->text())))
        QDialog::accept();
}

CPasswordInputDlg::CPasswordInputDlg(QWidget* parent)
    : QDialog(parent), m_edit(NewPasswordEdit(this)) {
    setWindowTitle(QStringLiteral("Password Input"));
    auto* form = new QFormLayout(this);
    form->addRow(QStringLiteral("Password:"), m_edit);
    form->addRow(OkCancel(this));
}

QString CPasswordInputDlg::Password() const { return m_edit->text(); }

void CPasswordInputDlg::accept() {
    if (Passed(CheckPasswordInput(m_edit->text()))) QDialog::accept();
}

// ---- communication parameters --------------------------------------------------------------

CCommParamDlg::CCommParamDlg(SessionState& session, ITransferWindows& windows, QWidget* parent)
    : QDialog(parent),
      m_session(session),
      m_windows(windows),
      m_station(new QLineEdit(this)),
      m_baud(new QComboBox(this)),
      m_stop(new QComboBox(this)),
      m_parity(new QComboBox(this)) {
    const auto words = [](const char* text) { return Translated("CommParam", text); };
    setWindowTitle(Translated("Caption", "通讯功能参数修改"));
    const CommParamChoice initial =
        InitialCommChoice(session.m_stations.empty() ? 1 : session.m_stations.front());
    m_baud->addItems({QStringLiteral("0:4800"), QStringLiteral("1:9600"), QStringLiteral("2:19200"),
                      QStringLiteral("3:38400")});
    m_stop->addItems({words("0:1停止位"), words("1:2停止位")});
    m_parity->addItems({words("0:无奇偶位"), words("1:偶位"), words("2:奇位")});
    m_baud->setCurrentIndex(initial.baudIndex);
    m_stop->setCurrentIndex(initial.stopIndex);
    m_parity->setCurrentIndex(initial.parityList);

    // A number edit: digits only, and a number outside 1 to 32 gives way to the last good one.
    m_station->setValidator(new QIntValidator(0, 99999, m_station));
    m_lastStation = QString::number(initial.station);
    m_station->setText(m_lastStation);
    connect(m_station, &QLineEdit::textEdited, this, Guarded([this](const QString& text) {
                const QString kept = FilterStationField(m_lastStation, text);
                if (kept != text) m_station->setText(kept);
                if (!kept.isEmpty()) m_lastStation = kept;
            }));

    auto* stationRow = new QHBoxLayout;
    stationRow->addWidget(m_station);
    stationRow->addWidget(new QLabel(QStringLiteral("1~32"), this));
    auto* form = new QFormLayout;
    form->addRow(words("09-01 变频器通讯站别"), stationRow);
    form->addRow(words("09-02 波特率设定"), m_baud);
    form->addRow(words("09-03 停止位选择"), m_stop);
    form->addRow(words("09-04 奇偶位选择"), m_parity);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(OkCancel(this));
}

CommParamChoice CCommParamDlg::Choice() const {
    return CommParamChoice{Atoi(m_station->text()), m_baud->currentIndex(), m_stop->currentIndex(),
                           m_parity->currentIndex()};
}

void CCommParamDlg::accept() {
    if (ApplyCommChange(m_session, m_windows, Choice())) QDialog::accept();
}

}  // namespace quillon
