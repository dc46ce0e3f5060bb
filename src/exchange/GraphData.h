#pragma once
// The graph watch's data files. The store is what the window's samples come down to: four curves
// with a name and scale limits each, and per sample the four value texts and the time text.
//
// CSV form (CR LF between lines, none after the last; nothing quoted, nothing trimmed):
//   ,name0,name1,name2,name3
//   Min,min0,min1,min2,min3
//   Max,max0,max1,max2,max3
//   <index from 0>,v0,v1,v2,v3,hh:mm:ss.mmm          one line per sample
//
// Workbook form: sheet and defined name "GraphData"; row 1 empty in columns 1 to 6, row 2
// "Index", the names, "Time"; row 3 "Min", row 4 "Max", samples from row 5.

#include "exchange/Workbook.h"

#include <QByteArray>
#include <QString>
#include <array>
#include <vector>

namespace quillon {

inline constexpr int kGraphCurves = 4;

struct GraphTime {
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
    double seconds = 0.0;  // millisecond * 0.001 + second + 60 * (minute + 60 * hour)
};

// Reads a time text by position: up to the first ":" the hour, the two characters behind it the
// minute, the two behind the next ":" the second, the last three the millisecond.
GraphTime ParseGraphTime(const QString& text);

struct GraphSample {
    std::array<QString, kGraphCurves> values;  // as displayed
    std::array<double, kGraphCurves> numbers{};  // the values as numbers
    QString time;
    double seconds = 0.0;  // the time in seconds of the day
};

struct GraphData {
    std::array<QString, kGraphCurves> names;
    std::array<QString, kGraphCurves> minimum;  // the scale limits of the "Parameter Set" dialog
    std::array<QString, kGraphCurves> maximum;
    std::vector<GraphSample> samples;
    GraphTime start;  // the first sample's time: the Start of a loaded run

    // Appends a sample from its texts, with its numbers and time read.
    void AddSample(const std::array<QString, kGraphCurves>& values, const QString& time);
};

QByteArray ExportGraphCsv(const GraphData& data);

// Replaces `data` with the lines of a graph CSV file (SplitCsvLines). A heading line without five
// fields says "Import file error." and ends with false; a sample line without six fields says the
// same and the import goes on with the next line.
bool ImportGraphCsv(const std::vector<QString>& lines, GraphData& data);

Workbook BuildGraphWorkbook(const GraphData& data);

// Replaces `data` with the sheet "GraphData" of a workbook: records from the row below the
// range's first row, read by position; from the fourth record on an empty first column ends the
// reading. Says "Import success." and returns true; a workbook without the sheet says
// "Import file error." and returns false.
bool ImportGraphWorkbook(const Workbook& book, GraphData& data);

}  // namespace quillon
