#pragma once
// Saving a file all or nothing. The bytes go to a temporary file beside the target; every write,
// the flush to the disk and the rename are checked, and only a file written whole replaces the
// target. A full disk, a file size limit or a folder that can't be written leave the previous
// file byte for byte as it was, and the caller gets the system's reason to show.

#include <QByteArrayView>
#include <QString>
#include <initializer_list>

namespace quillon {

// Writes `bytes` as the whole content of `path`. An empty text when the file is saved, else the
// reason it isn't (the system's own text, such as "No space left on device").
QString SaveFileAtomically(const QString& path, QByteArrayView bytes);

// Why `path` can't be saved before anything is written: its folder is missing or can't be
// written, or the path is a folder. Empty when a save can be tried.
QString SaveTargetProblem(const QString& path);

// The message for a save that failed: "can't save PATH: REASON".
QString SaveFailureText(const QString& path, const QString& reason);

// Saves a file that keeps the session (line settings, modules, recent projects) in the first of
// `places` that takes it. When none does, the person is told why the first didn't, through the
// prompt seam. True when it was saved.
bool SaveSessionFile(std::initializer_list<QString> places, QByteArrayView bytes);

// A process over its file size limit is ended by a signal in the middle of a write. Ignored, the
// write fails with "File too large" instead, and the save keeps the old file and says so. Called
// once at start by each program.
void FailWritesOverTheSizeLimit();

}  // namespace quillon
