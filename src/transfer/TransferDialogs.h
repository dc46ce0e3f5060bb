#pragma once
// The dialogs of the parameter transfer: the progress window of Read and Write, the station
// dialog of the editor's transmit, the list of motor parameters a Write left out, the three
// password dialogs and the change of communication parameters. Their checks are the logic's
// (Password.h, TransmitStations.h, CommChange.h); a failed check shows its message and keeps the
// dialog open.

#include "params/ParamTypes.h"
#include "transfer/CommChange.h"
#include "transfer/TransferWindows.h"

#include <QDialog>
#include <QRect>
#include <array>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace quillon {

struct SessionState;

// Where the progress window's top left corner goes: a third of the main window's width from its
// left side and `fifths` fifths of its height above its bottom (whole-number division).
QPoint ProgressOrigin(const QRect& mainWindow, int fifths = 1);

class CProgressDlg final : public QDialog, public IProgress {
    Q_OBJECT
public:
    // `mainWindow` is where the window places itself.
    explicit CProgressDlg(QWidget* mainWindow);

    bool IsVisible() const override { return isVisible(); }
    void Show(const QString& title) override;
    void Hide() override { hide(); }
    void SetRange(int lower, int upper) override;
    void SetPos(int pos) override;
    void SetLabel(const QString& label) override;

    QLabel* Label() const { return m_label; }
    QProgressBar* Bar() const { return m_bar; }

private:
    QWidget* m_mainWindow;
    QLabel* m_label;
    QProgressBar* m_bar;
};

// "Write": the stations of the editor's "Transmit Group".
class CWriteDlg final : public QDialog {
    Q_OBJECT
public:
    CWriteDlg(const std::vector<int>& linked, QWidget* parent = nullptr);
    // After OK: the stations; {0} for "All Inverter".
    const std::vector<int>& Stations() const { return m_result; }

    QRadioButton* SingleButton() const { return m_single; }
    QRadioButton* AllButton() const { return m_all; }
    QLineEdit* StationEdit() const { return m_edit; }

    void accept() override;

private:
    std::vector<int> m_linked;
    std::vector<int> m_result;
    QRadioButton* m_single;
    QRadioButton* m_all;
    QLineEdit* m_edit;
    QString m_lastGood;
};

// "未写入马达参数": the motor parameters a Write left out.
class CUnwrittenParamDlg final : public QDialog {
    Q_OBJECT
public:
    CUnwrittenParamDlg(const std::vector<MotorParam>& params, QWidget* parent = nullptr);
    QTableWidget* List() const { return m_list; }

private:
    QTableWidget* m_list;
};

// The password dialogs: each edit takes five characters, masked.
class CPasswordSetDlg final : public QDialog {
    Q_OBJECT
public:
    explicit CPasswordSetDlg(QWidget* parent = nullptr);
    QString Password() const;
    QLineEdit* PasswordEdit() const { return m_edits[0]; }
    QLineEdit* RepeatEdit() const { return m_edits[1]; }
    void accept() override;

private:
    std::array<QLineEdit*, 2> m_edits{};
};

class CChangePasswordDlg final : public QDialog {
    Q_OBJECT
public:
    explicit CChangePasswordDlg(QWidget* parent = nullptr);
    ChangePasswordEntry Entry() const;
    QLineEdit* OldEdit() const { return m_edits[0]; }
    QLineEdit* NewEdit() const { return m_edits[1]; }
    QLineEdit* RepeatEdit() const { return m_edits[2]; }
    void accept() override;

private:
    std::array<QLineEdit*, 3> m_edits{};
};

class CPasswordInputDlg final : public QDialog {
    Q_OBJECT
public:
    explicit CPasswordInputDlg(QWidget* parent = nullptr);
    QString Password() const;
    QLineEdit* PasswordEdit() const { return m_edit; }
    void accept() override;

private:
    QLineEdit* m_edit;
};

// "通讯功能参数修改": OK sends the change to the first linked station and closes only when the
// link works at the new settings.
class CCommParamDlg final : public QDialog {
    Q_OBJECT
public:
    CCommParamDlg(SessionState& session, ITransferWindows& windows, QWidget* parent = nullptr);

    QLineEdit* StationEdit() const { return m_station; }
    QComboBox* BaudList() const { return m_baud; }
    QComboBox* StopList() const { return m_stop; }
    QComboBox* ParityList() const { return m_parity; }
    CommParamChoice Choice() const;

    void accept() override;

private:
    SessionState& m_session;
    ITransferWindows& m_windows;
    QLineEdit* m_station;
    QComboBox* m_baud;
    QComboBox* m_stop;
    QComboBox* m_parity;
    QString m_lastStation;
};

}  // namespace quillon
