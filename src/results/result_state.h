#pragma once

#include "results/data_file.h"

#include <array>
#include <optional>
#include <string>

namespace qor {

inline constexpr std::size_t FileListLength = 2048;
inline constexpr std::size_t FileListRows = 7;

/// Entries of g_reportLines that are set by a start or a load.
enum ReportLine : std::size_t {
    ReportTitle = 0,
    ReportBand = 12,
    ReportIM = 13,
    ReportPath = 14,
    ReportMode = 15,
    ReportColumns = 16,
    ReportPower = 17,
    ReportFix = 18,
    ReportStart = 19,
    ReportStop = 20,
    ReportWorst = 21,
    ReportDate = 22,
};

/// What leaves the program or came back: report rows, the list of result files, comment and serial text.
struct ResultState {
    std::array<std::string, 23> g_reportLines;

    std::string m_DutSerial; ///< serial number of the device under test
    bool g_bKeepSerial = false;
    std::string g_comment;

    std::array<std::string, FileListLength> g_fileList;
    std::array<std::string, FileListRows> m_FileRow; ///< the rows of the list panel
    int g_FileNo = 0;
    int g_FileFirst = 0;
    int g_FileShown = 0;
    int g_FileLast = 6;
    bool g_listPanelOpen = false;

    /// Header of the file whose curve is shown, without its rows: a further save states it again.
    std::optional<ResultFile> loaded;

    std::string LastLoadPath;
    std::string g_autoSavePath;   ///< a path whose folder takes the numbered files of a 2-tone series
    std::string g_autoSaveFolder; ///< overrides it when not empty
    std::string g_autoSaveName;
};

} // namespace qor
