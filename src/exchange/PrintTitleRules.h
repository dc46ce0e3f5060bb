#pragma once
// The byte limits of the three print titles. They are counted in the bytes the project file
// keeps a text with (UTF-8), so a title with wide characters reaches its limit sooner; every
// limit stays well under the 99 bytes of a project file's text. One message serves all three
// fields, whatever the limit was.

#include "params/M330Doc.h"

namespace quillon {

inline constexpr qsizetype kPrintTitleMaxBytes = 30;
inline constexpr qsizetype kPrintDepartmentMaxBytes = 40;
inline constexpr qsizetype kPrintNameMaxBytes = 25;
inline constexpr const char* kPrintTitleTooLong = "Title or name can't be more than 20 bytes!";

bool PrintTitlesFit(const PrintTitles& titles);

}  // namespace quillon
