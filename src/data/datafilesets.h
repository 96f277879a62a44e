#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/filetables.h"

/// The dimensions and the set blocks of a data file.

/// A point as its line gives it.
struct FilePoint {
    float x = 0, y = 0, v1 = 1, v2 = 0;
    bool hasY = true; ///< false: Y was not measured, which the file tells by a number that is no value
};

/// The points of one row, aside from the session until the whole file is known to be good.
struct FileRow {
    std::vector<FilePoint> points;
    std::vector<std::string> labels; ///< as far as the last point that has one
};

struct FileSet {
    std::string title;
    RangePairs range{};
    FileRow data;
    FileRow low, high; ///< the confidence rows
};

/// What stands before the sections.
struct FileData {
    std::vector<FileSet> sets;
    int16_t confidence = 0; ///< 9: confidence rows stand among the rows
    int dropped = 0;        ///< sets beyond the room of the session
    int unread = 0;         ///< points without a value
    double check = 0;       ///< check value of the rows read
};

/// Reads the dimensions into the session and the set blocks aside. False when the file is bad or ends within
/// them: the session's data are untouched.
bool setsread(FileData& data);

/// Puts the data into the session, grid and all, in place of its own. False when memory does not suffice: the
/// session then keeps what it had.
bool setsput(FileData& data);

/// The whole rows of the session, and the confidence rows where they stand, as dimensions and set blocks.
/// ifylcnf tells which.
void setswrite();

/// Check value of the session's points.
double checkvalue();

/// Notes in the session what sort of points a file has: fileHasData, fileDiscovery.
void noticepoints(const FileData& data);
void noticepoints();
