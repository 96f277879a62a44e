// Any bytes as operations of the drawing layer: the plotter text holds printable ASCII only, no label ends
// itself or holds a command for the printer, and each operation of a trace stays on its line.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "plot/device_hpgl.h"
#include "plot/device_trace.h"
#include "plot/drawing.h"
#include "session/session.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

struct Text : TextSink {
    std::string text;
    bool open(const std::string&) override { return text.clear(), true; }
    bool write(std::string_view part) override { return text += part, true; }
    bool commit() override { return true; }
    void drop() override {}
};

class Bytes {
public:
    Bytes(const uint8_t* data, size_t size) : rest(reinterpret_cast<const char*>(data), size) {}
    bool empty() const { return rest.empty(); }
    uint8_t byte() {
        if (rest.empty()) return 0;
        const auto first = static_cast<uint8_t>(rest[0]);
        rest.remove_prefix(1);
        return first;
    }
    template <class Number>
    Number number() {
        Number value{};
        const size_t count = rest.size() < sizeof value ? rest.size() : sizeof value;
        std::memcpy(&value, rest.data(), count);
        rest.remove_prefix(count);
        return value;
    }
    std::string_view text() {
        const std::string_view part = rest.substr(0, byte());
        rest.remove_prefix(part.size() < rest.size() ? part.size() : rest.size());
        return part;
    }

private:
    std::string_view rest;
};

void mark(Bytes& bytes) {
    Device* device = plotdevice();
    require(device);
    device->markbegin();
    device->markstep({bytes.number<double>(), bytes.number<double>(), bytes.number<double>(),
                      bytes.number<double>(), bytes.byte() % 29, 1});
    device->markend();
}

/// Returns the number of operations that a trace writes a line for.
int draw(Bytes bytes) {
    int lines = 0;
    while (!bytes.empty()) {
        session.plotpen = bytes.number<float>();
        session.linewidth = static_cast<int16_t>(bytes.byte() - 128);
        session.plotx1 = bytes.byte() & 1 ? continueLine : bytes.number<double>();
        session.plotx2 = bytes.number<float>();
        session.ploty2 = bytes.byte() * 30.0;
        session.textSize = bytes.number<float>();
        session.textRotation = bytes.byte() & 1 ? 90 : 0;
        switch (bytes.byte() % 4) {
        case 0: plotline(); break;
        case 1: plottext(bytes.text()); break;
        case 2:
            mark(bytes);
            ++lines;
            break;
        default: plotwidth(bytes.byte()); break;
        }
        ++lines;
    }
    return lines;
}

void checkplotter(const std::string& text) {
    bool label = false;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (!label && text.compare(i, 3, "LB ") == 0) label = true;
        if (label && c == 3)
            label = false;
        else
            require(c >= ' ' && c <= '~');
    }
    require(!label);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    chooseside(lifeSide);
    allocatearrays();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    session.colormode = data[0] & 1;
    session.outdev = plotterDevice;
    const Bytes bytes(data + 1, size - 1);

    static Text out;
    HpglDevice plotter(out);
    require(plotbegin(plotter));
    draw(bytes);
    require(plotend());
    checkplotter(out.text);

    session.outdev = screenDevice;
    session.plotspeed = -1;
    TraceDevice trace(800, 600, out);
    require(plotbegin(trace));
    const int lines = draw(bytes) + 2;
    require(plotend());
    session.plotspeed = 20;
    int ends = 0;
    for (const char c : out.text) ends += c == '\n';
    require(ends == lines);
    return 0;
}
