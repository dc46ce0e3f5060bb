#pragma once
// "Parameter Set": the graph watch's station, and for each curve its channel and the limits of
// its scale. The limit fields filter what is typed (ParamSetFields.h); OK refuses a maximum that
// is not above its minimum and puts the focus on it.

#include "base/GraphSettings.h"

#include <QDialog>
#include <array>
#include <vector>

class QComboBox;
class QLineEdit;

namespace quillon {

class CParamSetDlg final : public QDialog {
    Q_OBJECT
public:
    CParamSetDlg(const std::vector<int>& stations, const GraphSettings& settings,
                 QWidget* parent = nullptr);

    // What OK took; the given settings until then.
    const GraphSettings& Settings() const { return m_settings; }
    QComboBox* StationList() const { return m_station; }
    QComboBox* ChannelList(int c) const { return m_channel[c]; }
    QLineEdit* MaximumEdit(int c) const { return m_maximum[c]; }
    QLineEdit* MinimumEdit(int c) const { return m_minimum[c]; }

    void accept() override;

private:
    QLineEdit* LimitEdit(const QString& text);

    GraphSettings m_settings;
    QComboBox* m_station;
    std::array<QComboBox*, kGraphChannels> m_channel{};
    std::array<QLineEdit*, kGraphChannels> m_maximum{};
    std::array<QLineEdit*, kGraphChannels> m_minimum{};
};

}  // namespace quillon
