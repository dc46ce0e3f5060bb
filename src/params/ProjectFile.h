#pragma once
// The project file (*.qpj): the model, the set value of every catalogue row, the graph curves,
// the mains frequency class and the print titles, written and read in one pass, field after
// field:
//
//   version i32 (2) | modelCode i32 | modelName text
//   flagGroupCount i32, per group: rowCount i32, m_bExists i32 per row (gap rows too)
//   valueGroupCount i32, per group: rowCount i32, m_strSetValue text per row
//   4 x graph curve: item i32, name text, maximum text, minimum text
//   freqClass i32 | printTitle text | printName text | printDepartment text
//
// The catalogue is not stored: names, defaults and the row layout come from PARAM.DAT at every
// load, and where file and catalogue disagree the catalogue wins. The last four fields are
// optional for the reader, so older files that end behind the graph curves still open.

#include "params/M330Doc.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace quillon {

inline constexpr qint32 kProjectFileVersion = 2;  // what we write, and the newest we read
inline constexpr const char* kProjectExtension = "qpj";

// The bytes of the document's project file.
QByteArray WriteProject(const CM330Doc& doc);

// Reads a project file into a freshly created document, in the order of the fields: the file's
// model goes to the session, the catalogue is reloaded for it, saved set values replace the
// catalogue's where the file flags them, the default column is refreshed for the frequency class
// in force. A version above 2 is noted in m_strLoadError and nothing further is read (the document
// keeps its catalogue values and nobody is told). Returns the version field.
// Raises ArchiveError for data that ends early or holds a text of 100 bytes or more, and the range
// failure for a row the file flags beyond the catalogue. `unread`, when given, gets the number of
// bytes behind the last field read.
qint32 ReadProject(CM330Doc& doc, QByteArrayView bytes, qsizetype* unread = nullptr);

struct ProjectOpenResult {
    bool ok = false;
    QString error;       // why the open failed
    qint32 version = 0;  // the file's version field
    // Why the file was not read in full (a newer version, bytes behind the last field); empty
    // when it was. Such a file opens with catalogue values where it wasn't read: good enough to
    // look at, never to send to a drive.
    QString unread;
};

// The document's side of opening a project: read the file, then refresh the model-dependent
// defaults from the initial table (set values stay as loaded), then let later overlays reach the
// set values again. A file that can't be read or is malformed gives ok = false and the reason;
// the document must then be thrown away.
ProjectOpenResult OpenProjectDocument(CM330Doc& doc, const QString& path);

// Saves the project all or nothing (SaveFileAtomically): a failed save leaves the previous file
// whole. False with the system's reason in `error` when it can't be written.
bool SaveProjectDocument(const CM330Doc& doc, const QString& path, QString& error);

}  // namespace quillon
