#include "ui/QtPrompt.h"

#include "ui/StationChooserDlg.h"

#include <QFileDialog>
#include <QMessageBox>

namespace quillon {
namespace {
const QString kTitle = QStringLiteral("Quillon");

QMessageBox::Icon IconOf(MessageKind kind) {
    switch (kind) {
        case MessageKind::Information: return QMessageBox::Information;
        case MessageKind::Error: return QMessageBox::Critical;
        case MessageKind::Warning: break;
    }
    return QMessageBox::Warning;
}

Answer Ask(QWidget* parent, const QString& text, QMessageBox::StandardButtons buttons) {
    QMessageBox box(QMessageBox::Question, kTitle, text, buttons, parent);
    switch (box.exec()) {
        case QMessageBox::Yes: return Answer::Yes;
        case QMessageBox::No: return Answer::No;
        case QMessageBox::Ok: return Answer::Ok;
        default: return Answer::Cancel;
    }
}
}  // namespace

void QtPrompt::Message(const QString& text, MessageKind kind) {
    QMessageBox box(IconOf(kind), kTitle, text, QMessageBox::Ok, m_parent);
    box.exec();
}

Answer QtPrompt::YesNoCancel(const QString& text) {
    return Ask(m_parent, text, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
}
Answer QtPrompt::YesNo(const QString& text) {
    const Answer a = Ask(m_parent, text, QMessageBox::Yes | QMessageBox::No);
    return a == Answer::Yes ? Answer::Yes : Answer::No;
}
Answer QtPrompt::OkCancel(const QString& text) {
    return Ask(m_parent, text, QMessageBox::Ok | QMessageBox::Cancel);
}

QString QtPrompt::OpenFileName(const QString& caption, const QString& filter,
                               const QString& defaultSuffix) {
    QFileDialog dlg(m_parent, caption, QString(), filter);
    dlg.setAcceptMode(QFileDialog::AcceptOpen);
    dlg.setFileMode(QFileDialog::ExistingFile);
    dlg.setDefaultSuffix(defaultSuffix);
    return dlg.exec() == QDialog::Accepted && !dlg.selectedFiles().isEmpty()
               ? dlg.selectedFiles().first()
               : QString();
}

QString QtPrompt::SaveFileName(const QString& caption, const QString& filter,
                               const QString& defaultSuffix, const QString& suggested) {
    QFileDialog dlg(m_parent, caption, QString(), filter);
    dlg.setAcceptMode(QFileDialog::AcceptSave);
    dlg.setDefaultSuffix(defaultSuffix);
    dlg.setOption(QFileDialog::DontConfirmOverwrite, false);  // ask before overwriting
    if (!suggested.isEmpty()) dlg.selectFile(suggested);
    return dlg.exec() == QDialog::Accepted && !dlg.selectedFiles().isEmpty()
               ? dlg.selectedFiles().first()
               : QString();
}

std::optional<int> QtPrompt::ChooseStation(const QString& caption, const std::vector<int>& stations) {
    CStationChooserDlg dlg(caption, stations, m_parent);
    if (dlg.exec() != QDialog::Accepted) return std::nullopt;
    return dlg.Station();
}

}  // namespace quillon
