#pragma once
// The words of the import and export commands and of the graph data files, exactly as the drive
// tool has always shown them (spelling included).

namespace quillon::ExchangeText {

inline constexpr const char* OpenFail = "Opening the file is fail.";
inline constexpr const char* ExportSuccess = "Export success.";
inline constexpr const char* ImportSuccess = "Import success.";
inline constexpr const char* BadLine = "Line %d(%s) of the import ffile is error.";
inline constexpr const char* ImportFileError = "Import file error.";
inline constexpr const char* FileNotExist = "The file hasn't exist!";
inline constexpr const char* NoDriver = "Please setup the Excel Driver first.";

// Dialog filters and captions.
inline constexpr const char* ExportFilter = "Export File(%1)";
inline constexpr const char* ImportFilter = "Import File(*.xls *.xlsx);;Import File(*.csv)";
inline constexpr const char* PictureFilter = "(*.bmp)";

}  // namespace quillon::ExchangeText
