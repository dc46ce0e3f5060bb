#pragma once
// "Model Select": the person picks the drive model and the mains frequency for a new project.
// The models and their descriptions come from R770.SPE beside the program.

#include "base/SessionState.h"
#include "params/ModelSpec.h"
#include "params/ParamTypes.h"

#include <QDialog>

class QComboBox;
class QLabel;

namespace quillon {

class CModelSelectDlg : public QDialog {
    Q_OBJECT
public:
    // Reads R770.SPE for the program in `appDir` (DataFilePath); a missing file leaves both lists empty.
    CModelSelectDlg(SessionState& session, const QString& appDir, QWidget* parent = nullptr);

    QComboBox* ModelList() const { return m_model; }
    QComboBox* FrequencyList() const { return m_frequency; }
    QLabel* Description() const { return m_description; }

    void accept() override;

private:
    void ShowDescription(int index);

    SessionState& m_session;
    ModelSpecList m_spec;
    QLabel* m_description;
    QComboBox* m_frequency;
    QComboBox* m_model;
};

}  // namespace quillon
