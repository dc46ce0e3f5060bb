#include "params/ModelSelectDlg.h"

#include "base/DataFiles.h"
#include "base/ErrorReport.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace quillon {

CModelSelectDlg::CModelSelectDlg(SessionState& session, const QString& appDir, QWidget* parent)
    : QDialog(parent),
      m_session(session),
      m_spec(ReadModelSpec(DataFilePath(appDir, QStringLiteral("R770.SPE")))),
      m_description(new QLabel(this)),
      m_frequency(new QComboBox(this)),
      m_model(new QComboBox(this)) {
    setWindowTitle(QStringLiteral("Model Select"));
    m_description->setWordWrap(true);
    m_description->setMinimumSize(320, 90);
    m_description->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_description->setFrameShape(QFrame::StyledPanel);

    // The frequency always starts at 50 Hz: the last project's choice is not carried over.
    m_frequency->addItems({QStringLiteral("50.00"), QStringLiteral("60.00")});
    m_frequency->setCurrentIndex(0);
    m_model->addItems(m_spec.names);

    const int found = FindModelByPrefix(m_spec.names, m_session.m_strModelName);
    m_model->setCurrentIndex(found >= 0 ? found : (m_spec.names.isEmpty() ? -1 : 0));
    const int shown = found >= 0 ? found : 0;
    if (shown < m_spec.descriptions.size()) m_description->setText(m_spec.descriptions[shown]);
    connect(m_model, &QComboBox::currentIndexChanged, this,
            Guarded([this](int index) { ShowDescription(index); }));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &CModelSelectDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Frequency:"), m_frequency);
    form->addRow(QStringLiteral("Model:"), m_model);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_description);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

void CModelSelectDlg::ShowDescription(int index) {
    if (index < 0) return;
    // Descriptions pair with names by position; a model without one has shifted the rest, and
    // the last names may then have none: that is the range failure.
    m_description->setText(CheckedAt(m_spec.descriptions, index));
}

void CModelSelectDlg::accept() {
    m_session.m_strModelName = m_model->currentText();
    m_session.m_nFreqClass = m_frequency->currentIndex();
    QDialog::accept();
}

}  // namespace quillon
