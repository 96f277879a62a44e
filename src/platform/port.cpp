#include "platform/port.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <thread>
#include <utility>

#include "platform/paths.h"

namespace {

constexpr std::chrono::seconds drainPatience(10); ///< that a line may send nothing at the end

struct PortDevice {
    std::string_view name;
    std::array<const char*, 2> paths; ///< the first that is there
};
constexpr PortDevice devices[] = {
    {"COM1", {"/dev/ttyS0", "/dev/ttyUSB0"}}, {"COM2", {"/dev/ttyS1", "/dev/ttyUSB1"}},
    {"COM3", {"/dev/ttyS2", "/dev/ttyUSB2"}}, {"LPT1", {"/dev/usb/lp0", "/dev/lp0"}},
    {"LPT2", {"/dev/usb/lp1", "/dev/lp1"}},   {"LPT3", {"/dev/usb/lp2", "/dev/lp2"}},
};

struct Rate {
    double baud;
    speed_t speed;
};
constexpr Rate rates[] = {{50, B50},         {75, B75},         {110, B110},       {134, B134},
                          {150, B150},       {200, B200},       {300, B300},       {600, B600},
                          {1200, B1200},     {1800, B1800},     {2400, B2400},     {4800, B4800},
                          {9600, B9600},     {19200, B19200},   {38400, B38400},   {57600, B57600},
                          {115200, B115200}, {230400, B230400}, {460800, B460800}, {921600, B921600}};

const PortDevice* deviceof(std::string_view name) {
    const auto* const found = std::find_if(std::begin(devices), std::end(devices),
                                           [&](const PortDevice& one) { return one.name == name; });
    return found == std::end(devices) ? nullptr : found;
}

/// The next part of a list, up to a comma.
std::string_view nextpart(std::string_view& rest) {
    const auto end = std::min(rest.find(','), rest.size());
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return part;
}

template <class Number>
void takenumber(std::string_view text, Number& number, Number low, Number high) {
    Number read{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
    if (error == std::errc() && end == text.data() + text.size() && read >= low && read <= high)
        number = read;
}

tcflag_t bitsflag(int dataBits) {
    constexpr tcflag_t flags[] = {CS5, CS6, CS7, CS8};
    return flags[std::clamp(dataBits, 5, 8) - 5];
}

/// Parity as flags of the line. Space and mark are a parity bit that never changes.
tcflag_t parityflags(char parity) {
    switch (parity) {
    case 'E': return PARENB;
    case 'O': return PARENB | PARODD;
    case 'S': return PARENB | CMSPAR;
    case 'M': return PARENB | CMSPAR | PARODD;
    default: return 0;
    }
}

/// Waits until the line has sent what it took, as long as it sends at all: a close would throw the rest away,
/// and tcdrain alone waits for ever where a plotter holds the flow off. True when all is out; a device that
/// is no line has nothing to wait for.
bool drained(int line, std::chrono::milliseconds waitAtMost) {
    using Clock = std::chrono::steady_clock;
    constexpr auto step = std::chrono::milliseconds(20);
    if (::isatty(line) == 0) return true;
    int left = -1;
    for (Clock::time_point progress = Clock::now();;) {
        int waiting = 0;
        if (::ioctl(line, TIOCOUTQ, &waiting) != 0) return false;
        if (waiting == 0) return tcdrain(line) == 0;
        if (waiting != left) progress = Clock::now();
        if (Clock::now() - progress > waitAtMost) {
            ::tcflush(line, TCOFLUSH); // or the close itself would wait for it
            errno = ETIMEDOUT;
            return false;
        }
        left = waiting;
        std::this_thread::sleep_for(step);
    }
}

} // namespace

PortSetting portsetting(std::string_view text) {
    PortSetting setting;
    const PortDevice* const device = deviceof(text.substr(0, 4));
    setting.serial = device && text.starts_with("COM") && text.size() > 4;
    if (!setting.serial) {
        setting.name = text;
        return setting;
    }
    setting.name = device->name;
    std::string_view rest = text.substr(4);
    takenumber(nextpart(rest), setting.baud, 50.0, 1e6);
    const std::string_view parity = nextpart(rest);
    if (parity.size() == 1 && std::string_view("NEOMS").find(parity[0]) != std::string_view::npos)
        setting.parity = parity[0];
    takenumber(nextpart(rest), setting.dataBits, 5, 8);
    takenumber(nextpart(rest), setting.stopBits, 1.0, 2.0);
    return setting;
}

std::string portpath(const std::string& name) {
    const PortDevice* const device = deviceof(name);
    if (!device) return nativepath(name);
    const bool first = ::access(device->paths[0], F_OK) == 0 || ::access(device->paths[1], F_OK) != 0;
    return device->paths[first ? 0 : 1];
}

bool setserial(int line, const PortSetting& setting) {
    const auto* const rate = std::find_if(std::begin(rates), std::end(rates),
                                          [&](const Rate& one) { return one.baud == setting.baud; });
    if (rate == std::end(rates)) {
        errno = EINVAL;
        return false;
    }
    termios state{};
    if (tcgetattr(line, &state) != 0) return false;
    cfmakeraw(&state);
    state.c_cflag &= ~(static_cast<tcflag_t>(CSIZE) | CSTOPB | PARENB | PARODD | CMSPAR);
    state.c_cflag |= bitsflag(setting.dataBits) | parityflags(setting.parity) | CLOCAL;
    if (setting.stopBits > 1) state.c_cflag |= CSTOPB;
    state.c_iflag |= IXON; // a plotter holds the flow off while its buffer is full
    return cfsetospeed(&state, rate->speed) == 0 && cfsetispeed(&state, rate->speed) == 0
           && tcsetattr(line, TCSANOW, &state) == 0;
}

bool PortSink::open(const std::string& path) {
    drop();
    const PortSetting setting = portsetting(path);
    // Without O_NONBLOCK the open itself may wait for a carrier that never comes.
    line = ::open(portpath(setting.name).c_str(), O_WRONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (line < 0) {
        if (errno == ENOENT) errno = ENODEV;
        return false;
    }
    serial = setting.serial;
    if (!serial || setserial(line, setting)) return true;
    const int why = errno;
    drop();
    errno = why;
    return false;
}

bool PortSink::write(std::string_view text) {
    while (line >= 0 && !text.empty()) {
        const ssize_t written = ::write(line, text.data(), text.size());
        if (written > 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
            continue;
        }
        if (written < 0 && errno == EINTR) continue;
        if (written < 0 && errno != EAGAIN) return false;
        pollfd ready{line, POLLOUT, 0};
        const int polled = ::poll(&ready, 1, patience);
        if (polled < 0 && errno == EINTR) continue;
        if (polled <= 0 || (ready.revents & (POLLERR | POLLHUP | POLLNVAL)) != 0) return false;
    }
    return line >= 0;
}

bool PortSink::commit() {
    if (line < 0) return false;
    const bool sent = drained(line, drainPatience);
    const int why = errno;
    const bool closed = ::close(std::exchange(line, -1)) == 0;
    if (!sent) errno = why;
    return sent && closed;
}

void PortSink::drop() {
    if (line >= 0) ::close(std::exchange(line, -1));
}
