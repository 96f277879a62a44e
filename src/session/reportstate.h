#pragma once

#include <cstdint>
#include <string>

/// Where report lines go.
enum ReportDevice : int16_t { noReport = -1, reportPicture = 0, reportList = 2, reportText = 4 };

struct ReportState {
    int16_t reportDevice = reportText; ///< ReportDevice; other values are printer paths
    int16_t lineDevice = reportText;   ///< device on which the line in hand stands
    int16_t reportLine = 0;            ///< lines written so far
    float reportColumn = 0;            ///< characters already on the current line; 0 after a line end
    std::string reportBuffer;          ///< text held for device 4
};
