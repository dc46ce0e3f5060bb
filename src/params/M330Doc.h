#pragma once
// The project document: the parameter set of one drive type, as groups of rows of display
// text, with the flag tables the view and the project file use. One document exists at a time;
// New and Open replace it whole. The model, frequency class and program directory belong to the
// session and are read from it.

#include "base/SessionState.h"
#include "params/ParamTypes.h"

#include <QString>
#include <vector>

namespace quillon {

inline constexpr const char* kCatalogueFile = "PARAM.DAT";
inline constexpr const char* kInitialTableFile = "IntialParam.DAT";
inline constexpr const char* kMotorListFile = "R770MOTORPARAM.DAT";

// The three titles of the printed parameter list, set in "Print Title Set" and kept in the
// project file. They belong to the project's view; the document carries them so that the file
// can be read and written without a window.
struct PrintTitles {
    QString m_strTitle = QStringLiteral("Parameter Setting List");
    QString m_strName;
    QString m_strDepartment;
};

class CM330Doc {
public:
    // Loads the catalogue and the motor list from the session's program directory and puts the
    // rated values of the session's model on both columns; the session's graph curves start
    // unused and its parameters complete. Raises the range failure when the catalogue is missing
    // or too short.
    explicit CM330Doc(SessionState& session);
    virtual ~CM330Doc() = default;
    CM330Doc(const CM330Doc&) = delete;
    CM330Doc& operator=(const CM330Doc&) = delete;

    // Checked access; out of range raises std::out_of_range("invalid vector<T> subscript").
    ParamGroup& GroupAt(int g);
    const ParamGroup& GroupAt(int g) const;
    ParamRow& RowAt(int group, int r);
    const ParamRow& RowAt(int group, int r) const;

    // A new project: the initial table gives every model-dependent row its value in both columns.
    void OnNewDocument();

    void LoadCatalogue(const QString& path);
    void LoadMotorList(const QString& path);
    // Reads the initial table and applies it. A file that can't be opened shows
    // "Can't open the file!" and leaves the rows alone.
    void LoadInitialTable(const QString& path);
    void ApplyInitialTable();
    void ApplyRatedDefaults(bool bothColumns);
    // A read found another model: the rows are built anew from the catalogue files.
    void ReloadCatalogue();

    QString CataloguePath() const;
    QString MotorListPath() const;
    static QString InitialTablePath();  // beside the program, from the process-wide directory

    bool IsModified() const { return m_bModified; }
    void SetModifiedFlag(bool modified = true) { m_bModified = modified; }

    SessionState& Session() { return m_session; }
    const SessionState& Session() const { return m_session; }

    FlagTable m_savedRow{};
    std::vector<MotorParam> m_motorList;
    FlagTable m_rowExists{};
    QString m_strLoadError;
    int m_bApplyToSetValue = 0;
    std::vector<InitRecord> m_initTable;
    std::vector<ParamGroup> m_groups;
    FlagTable m_rowChanged{};
    PrintTitles m_printTitles;

private:
    SessionState& m_session;
    bool m_bModified = false;
};

}  // namespace quillon
