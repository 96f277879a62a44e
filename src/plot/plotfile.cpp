#include "plot/plotfile.h"
#include "plot/device_svg.h"
#include "plot/plotprob.h"
#include "session/session.h"
#include <fstream>
bool plotfileknown(const std::string&) { return true; }
bool plotfile(const std::string& path, int a, int d) {
    std::ofstream f(path, std::ios::binary);
    SvgDevice dev(a, d, [&](std::string_view t) {
        f << t;
        return bool(f);
    });
    session.outdev = 3;
    return plotentry(dev);
}
