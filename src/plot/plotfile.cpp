#include "plot/plotfile.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <string_view>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "platform/port.h"
#include "plot/device_hpgl.h"
#include "plot/device_svg.h"
#include "plot/device_trace.h"
#include "plot/plotprob.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

struct Size {
    int across, down;
};

struct PlotFileKind {
    std::string_view extension;
    OutputDevice outdev;
    std::unique_ptr<Device> (*device)(TextSink& sink, Size size);
};

constexpr std::array<PlotFileKind, 3> kinds = {{
    {".hgl", plotterDevice,
     [](TextSink& sink, Size) -> std::unique_ptr<Device> { return std::make_unique<HpglDevice>(sink); }},
    {".svg", pictureDevice,
     [](TextSink& sink, Size size) -> std::unique_ptr<Device> {
         return std::make_unique<SvgDevice>(size.across, size.down, sink);
     }},
    {".trace", pictureDevice,
     [](TextSink& sink, Size size) -> std::unique_ptr<Device> {
         return std::make_unique<TraceDevice>(size.across, size.down, sink);
     }},
}};

/// Pictures that the platform paints.
constexpr std::string_view paintedKinds[] = {".bmp", ".png", ".pdf"};

std::string smallletters(std::string path) {
    for (char& c : path)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return path;
}

/// The kind that a name ends in, in small or capital letters.
const PlotFileKind* kindof(const std::string& path) {
    const std::string name = smallletters(path);
    for (const PlotFileKind& kind : kinds)
        if (name.ends_with(kind.extension)) return &kind;
    return nullptr;
}

bool paint(const std::string& path, int pixelsAcross, int pixelsDown) {
    std::string svg;
    if (!plotsvg(svg, pixelsAcross, pixelsDown)) return false;
    if (platform && platform->pictures().bitmap(nativepath(path), svg, pixelsAcross, pixelsDown)) return true;
    const Keep keep{session.msg, session.menuTitle};
    session.menuTitle.clear();
    compose(session.msg, "Bitmap ", Word::Not, " ", Word::Possible, ": ", AsTyped{path});
    tellok();
    return false;
}

} // namespace

bool plotfilepainted(const std::string& path) {
    const std::string name = smallletters(path);
    return std::any_of(std::begin(paintedKinds), std::end(paintedKinds),
                       [&](std::string_view extension) { return name.ends_with(extension); });
}

bool plotfileknown(const std::string& path) { return kindof(path) != nullptr || plotfilepainted(path); }

bool plotfile(const std::string& path, int pixelsAcross, int pixelsDown) {
    if (plotfilepainted(path)) return paint(path, pixelsAcross, pixelsDown);
    const PlotFileKind* kind = kindof(path);
    if (!kind) return false;
    const Keep keep{session.outdev, session.outputName, session.plotw, session.ploth};
    session.outdev = static_cast<float>(kind->outdev);
    session.outputName = path;
    OutputFile file;
    return plotentry(*kind->device(file, {pixelsAcross, pixelsDown}));
}

bool plotport() {
    const Keep keep{session.outdev, session.outputName, session.plotw, session.ploth};
    session.outdev = plotterDevice;
    session.outputName.clear();
    PortSink port;
    HpglDevice device(port);
    return plotentry(device);
}

bool plotsvg(std::string& text, int pixelsAcross, int pixelsDown) {
    const Keep keep{session.outdev, session.outputName, session.plotw, session.ploth};
    session.outdev = pictureDevice;
    TextKeeper sink(text);
    SvgDevice device(pixelsAcross, pixelsDown, sink);
    return plotentry(device);
}
