#include "platform/port.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <string>

#include "support/workfolder.h"

namespace {

/// A device that takes what its buffer holds, and no more: a pipe that nobody reads.
class StalledDevice {
public:
    StalledDevice() {
        EXPECT_EQ(mkfifo(path.c_str(), 0600), 0);
        reader = ::open(path.c_str(), O_RDONLY | O_NONBLOCK);
    }
    ~StalledDevice() { hangup(); }
    void hangup() {
        if (reader >= 0) ::close(reader);
        reader = -1;
    }
    WorkFolder folder;
    std::string path = folder.path("stalled");
    int reader = -1;
};

constexpr std::size_t moreThanABuffer = 1 << 20;

TEST(Port, ADeviceThatTakesNothingMoreHasFailedAfterItsTime) {
    StalledDevice device;
    PortSink port(50);
    ASSERT_TRUE(port.open(device.path));
    EXPECT_TRUE(port.write("IN;")) << "its buffer has room for that";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(port.write(std::string(moreThanABuffer, ';')));
    const auto took = std::chrono::steady_clock::now() - start;
    EXPECT_GE(took, std::chrono::milliseconds(50));
    EXPECT_LT(took, std::chrono::seconds(10));
}

TEST(Port, ADeviceThatIsSwitchedOffFailsTheWrite) {
    StalledDevice device;
    PortSink port(50);
    ASSERT_TRUE(port.open(device.path));
    ASSERT_FALSE(port.write(std::string(moreThanABuffer, ';')));
    const auto former = std::signal(SIGPIPE, SIG_IGN);
    device.hangup();
    EXPECT_FALSE(port.write("PU;"));
    std::signal(SIGPIPE, former);
}

TEST(Port, ADeviceThatIsNotThereIsNamedAsSuch) {
    WorkFolder folder;
    PortSink port;
    EXPECT_FALSE(port.open(folder.path("none")));
    EXPECT_EQ(errno, ENODEV);
    EXPECT_FALSE(port.write("IN;"));
    EXPECT_FALSE(port.commit());
}

TEST(Port, TheTextOfAPortTellsItsLine) {
    const PortSetting serial = portsetting("COM219200,E,7,2,RS,CS65535,DS,CD");
    EXPECT_EQ(serial, (PortSetting{"COM2", true, 19200, 'E', 7, 2}));
    const PortSetting broken = portsetting("COM1fast,Q,9,0");
    EXPECT_EQ(broken, (PortSetting{"COM1", true, 9600, 'N', 8, 1})) << "what cannot be read keeps the usual";
    EXPECT_EQ(portsetting("LPT1"), (PortSetting{.name = "LPT1"}));
    EXPECT_EQ(portsetting("/tmp/plot.hgl"), (PortSetting{.name = "/tmp/plot.hgl"}));
}

} // namespace
