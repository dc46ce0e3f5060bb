#pragma once
// The project document: the parameter set of one drive type, as groups of rows of display
// text, with the flag tables the view and the project file use. One document exists at a time;
// New and Open replace it whole. The model, frequency class and program directory belong to the
// session and are read from it.

#include "base/SessionState.h"
#include "params/ParamTypes.h"

#include <QObject>
#include <QString>
#include <vector>

namespace quillon {

inline constexpr const char* kCatalogueFile = "PARAM.DAT";
inline constexpr const char* kInitialTableFile = "IntialParam.DAT";
inline constexpr const char* kMotorListFile = "R770MOTORPARAM.DAT";

// Asked before a modified project is closed or replaced, also by a Read from a drive.
inline constexpr const char* kSaveModifiedQuestion = "The file has been modified,save it or not?";

// The three titles of the printed parameter list, set in "Print Title Set" and kept in the
// project file. They belong to the project's view; the document carries them so that the file
// can be read and written without a window.
struct PrintTitles {
    QString m_strTitle = QStringLiteral("Parameter Setting List");
    QString m_strName;
    QString m_strDepartment;
};

// What a new set value says about its row's changed mark.
enum class RowMark {
    Keep,     // the mark stays as it is
    Changed,  // the editor changed the value and no write has sent it yet
    InStep,   // the value is what the drive holds (just read, or just written)
};

class CM330Doc : public QObject {
    Q_OBJECT
public:
    // Loads the catalogue and the motor list from the session's program directory and puts the
    // rated values of the session's model on both columns; the session's graph curves start
    // unused and its parameters complete. Raises the range failure when the catalogue is missing
    // or too short.
    explicit CM330Doc(SessionState& session);
    virtual ~CM330Doc() = default;
    CM330Doc(const CM330Doc&) = delete;
    CM330Doc& operator=(const CM330Doc&) = delete;

    // The values of a row as reads, the editor and writes change them. These and the catalogue
    // reload are the only code that touches the changed marks, and each announces the group.
    void SetReadValue(int group, int row, const QString& text);
    void SetSetValue(int group, int row, const QString& text, RowMark mark = RowMark::Keep);
    // A write sent the set values: of one row, of a group (row -1), of all groups (group -1).
    // Their marks clear.
    void MarkWritten(int group, int row = -1);
    // Whether the row's set value changed in the editor since it was last read or written.
    bool RowChanged(int group, int row) const;

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
    PrintTitles m_printTitles;

signals:
    // Values or marks of the group changed; -1 for all groups (a reload, a whole write).
    void GroupChanged(int group);

private:
    void SetMark(int group, int row, int mark);

    FlagTable m_rowChanged{};
    SessionState& m_session;
    bool m_bModified = false;
};

}  // namespace quillon
