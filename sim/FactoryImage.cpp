#include "sim/FactoryImage.h"

#include "base/SessionState.h"
#include "params/M330Doc.h"
#include "params/ModelTable.h"
#include "transfer/ReadLayout.h"
#include "transfer/WriteLayout.h"

#include <QDir>
#include <stdexcept>

namespace quillon::sim {

RegisterImage FactoryImage(int modelCode, int freqClass, const QString& dataDir)
{
    SessionState session;
    session.m_nModelCode = modelCode;
    QString capacity;
    session.m_strModelName = ModelNameFromCode(modelCode, capacity);
    session.m_nFreqClass = freqClass;
    session.m_strAppDir = QDir(dataDir).absolutePath() + QLatin1Char('/');

    RegisterImage image;
    try {
        CM330Doc doc(session);  // catalogue, rated values of the model in both columns
        doc.m_bApplyToSetValue = 1;
        doc.LoadInitialTable(session.m_strAppDir + QLatin1String(kInitialTableFile));
        for (int g = 0; g < kRegisterGroupCount && g < static_cast<int>(doc.m_groups.size()); ++g) {
            const auto& rows = doc.GroupAt(g).m_rows;
            for (int r = 0; r < 256; ++r) {
                const bool inCatalogue =
                    r < static_cast<int>(rows.size()) && rows[static_cast<std::size_t>(r)].m_bExists;
                if (!inCatalogue && !IsReadRow(g, r) && !IsWrittenRow(g, r, WriteRoute::Command) &&
                    !IsWrittenRow(g, r, WriteRoute::Editor))
                    continue;
                const QString text =
                    r < static_cast<int>(rows.size()) ? rows[static_cast<std::size_t>(r)].m_strDefault
                                                      : QString();
                image.values[ParamRegister(g, r)] = ParseRegisterText(ReadFormatOf(g, r), text);
            }
        }
    } catch (const std::out_of_range&) {
        throw std::runtime_error("the catalogue " + (session.m_strAppDir + QLatin1String(kCatalogueFile)).toStdString() +
                                 " is missing or incomplete");
    }
    if (image.values.empty())
        throw std::runtime_error("the catalogue in " + session.m_strAppDir.toStdString() +
                                 " holds no parameters");
    return image;
}

}  // namespace quillon::sim
