#include "plot/plotfile.h"

#include <array>
#include <memory>
#include <string_view>

#include "platform/files.h"
#include "plot/device_hpgl.h"
#include "plot/device_svg.h"
#include "plot/device_trace.h"
#include "plot/plotprob.h"
#include "session/session.h"

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

/// The kind that a name ends in, in small or capital letters.
const PlotFileKind* kindof(std::string path) {
    for (char& c : path)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    for (const PlotFileKind& kind : kinds)
        if (path.ends_with(kind.extension)) return &kind;
    return nullptr;
}

} // namespace

bool plotfileknown(const std::string& path) { return kindof(path) != nullptr; }

bool plotfile(const std::string& path, int pixelsAcross, int pixelsDown) {
    const PlotFileKind* kind = kindof(path);
    if (!kind) return false;
    const Keep keep{session.outdev, session.outputName, session.plotw, session.ploth};
    session.outdev = static_cast<float>(kind->outdev);
    session.outputName = path;
    OutputFile file;
    return plotentry(*kind->device(file, {pixelsAcross, pixelsDown}));
}

bool plotsvg(std::string& text, int pixelsAcross, int pixelsDown) {
    const Keep keep{session.outdev, session.outputName, session.plotw, session.ploth};
    session.outdev = pictureDevice;
    TextKeeper sink(text);
    SvgDevice device(pixelsAcross, pixelsDown, sink);
    return plotentry(device);
}
