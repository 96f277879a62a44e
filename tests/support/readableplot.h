#pragma once

#include <gtest/gtest.h>

#include "support/recordingdevice.h"

/// Whether the texts of a plot can be read.

struct Box {
    double left, top, right, bottom;
};

/// Room of a text: from its capitals down to its descenders.
inline Box boxof(const RecordingDevice::Text& t) {
    const double up = 0.73 * t.size;
    const double down = 0.2 * t.size;
    if (t.rotation == 90) return {t.x - up, t.y - t.width, t.x + down, t.y};
    return {t.x, t.y - up, t.x + t.width, t.y + down};
}

inline bool overlap(const Box& a, const Box& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// Every text stands on the canvas, and none covers another.
inline void expectreadable(const RecordingDevice& device) {
    for (std::size_t i = 0; i < device.texts.size(); ++i) {
        const Box box = boxof(device.texts[i]);
        EXPECT_GE(box.left, 0) << device.texts[i].text;
        EXPECT_GE(box.top, 0) << device.texts[i].text;
        EXPECT_LE(box.right, device.width()) << device.texts[i].text;
        EXPECT_LE(box.bottom, device.height()) << device.texts[i].text;
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(overlap(box, boxof(device.texts[j])))
                << device.texts[i].text << " covers " << device.texts[j].text;
    }
}
