#include "shell/output.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <string>

#include "platform/paths.h"
#include "platform/port.h"
#include "plot/drawing.h"
#include "session/opendata.h"
#include "support/freshsession.h"
#include "support/hpglreader.h"
#include "support/lifefixture.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

namespace {

class OutputTest : public LifeTest {
protected:
    OutputTest() {
        session.configPath = session.tempPath = folder.path("") + "/";
        life({"150", "230", "310", "420", "510"});
    }
    bool put(char kind, ScriptedPlatform& shown) {
        session.outputKind = kind;
        const bool done = outputactivate();
        shown.verify();
        return done;
    }
    WorkFolder folder;
};

/// The plotter's end of a serial line.
class Line {
public:
    Line() : end(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
        if (end >= 0 && grantpt(end) == 0 && unlockpt(end) == 0) name = ptsname(end);
    }
    ~Line() {
        if (end >= 0) ::close(end);
    }
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    std::string read() const {
        char buffer[4096];
        const ssize_t count = ::read(end, buffer, sizeof buffer);
        return count > 0 ? std::string(buffer, static_cast<std::size_t>(count)) : std::string();
    }
    std::string name;

private:
    int end;
};

} // namespace

TEST_F(OutputTest, WithoutDataThereIsNothingToPutOut) {
    life({});
    ScriptedPlatform shown;
    shown.expectmessage("No Data");
    outputpage();
    EXPECT_EQ(shown.shown[0].header, "Data");
    shown.expectmessage("No Data");
    EXPECT_FALSE(copyplot());
}

TEST_F(OutputTest, TheOutputPageShowsWhatGoesOutAndPutsItOut) {
    ScriptedPlatform shown;
    shown.expectkey("", 'B');
    shown.expectkey("", 'C');
    shown.expectkey("", 'A');
    shown.expectkey("", 'X');
    outputpage();
    EXPECT_EQ(shown.shown[0].items[1], "B...Output Type = Printer ... WYSIWYG");
    EXPECT_EQ(shown.shown[2].items[1], "B...Output Type = Data List To Clipboard");
    EXPECT_EQ(shown.clipboardText, "150\n230\n310\n420\n510\n");
}

TEST_F(OutputTest, ThePlotIsPrintedAsShownOrFineInItsSize) {
    ScriptedPlatform shown;
    session.printPercent = 60;
    EXPECT_TRUE(put('W', shown));
    EXPECT_TRUE(put('B', shown));
    EXPECT_EQ(shown.printed, (std::vector<std::string>{"shown 60", "fine 60"}));
    shown.printEnd = PrintEnd::cancelled;
    EXPECT_FALSE(put('W', shown)) << "a cancel needs no word";
    shown.printEnd = PrintEnd::failed;
    shown.expectmessage("Printer Error");
    EXPECT_FALSE(put('W', shown));
    shown.printEnd = PrintEnd::noPrinter;
    shown.expectmessage("No Printer");
    EXPECT_FALSE(put('D', shown));
}

TEST_F(OutputTest, WhereThereIsNoPaperItSaysSo) {
    session.outputKind = 'W';
    EXPECT_FALSE(outputactivate());
    EXPECT_EQ(desktop.messages.back(), "No Printer");
}

TEST_F(OutputTest, DataAndReportGoToTextFiles) {
    ScriptedPlatform shown;
    shown.expectfile("Save Data", folder.path("list"));
    EXPECT_TRUE(put('E', shown));
    EXPECT_EQ(folder.text("list.txt"), "150\n230\n310\n420\n510\n");
    shown.expectfile("Save Report", folder.path("report.txt"));
    EXPECT_TRUE(put('T', shown));
    EXPECT_NE(folder.text("report.txt").find("Eta"), std::string::npos);
    shown.expectfile("Save Data", std::nullopt);
    EXPECT_FALSE(put('E', shown));
    shown.expectfile("Save Data", folder.path("no/such/list.txt"));
    shown.expectmessage("Cannot Save");
    EXPECT_FALSE(put('E', shown));
}

TEST_F(OutputTest, AFileThatOnlyTheExtensionMeetsIsAskedFor) {
    folder.write("list.txt", "another's");
    ScriptedPlatform shown;
    shown.machine.present.insert(ownpath(folder.path("list.txt")));
    shown.expectfile("Save Data", folder.path("list"));
    shown.expectkey("File Already Present", 'N');
    EXPECT_FALSE(put('E', shown));
    EXPECT_EQ(folder.text("list.txt"), "another's");
    shown.expectfile("Save Data", folder.path("list"));
    shown.expectkey("File Already Present", 'Y');
    EXPECT_TRUE(put('E', shown));
    EXPECT_EQ(folder.text("list.txt"), "150\n230\n310\n420\n510\n");
    shown.expectfile("Save Data", folder.path("list.txt"));
    EXPECT_TRUE(put('E', shown)) << "the dialog asked for this one";
}

TEST_F(OutputTest, PicturesGoToTheKindOfFileThatTheNameSays) {
    ScriptedPlatform shown;
    shown.expectfile("Save Picture", folder.path("plot.hgl"));
    EXPECT_TRUE(put('H', shown));
    EXPECT_EQ(readhpgl(folder.text("plot.hgl")).problems, std::vector<std::string>{});
    shown.expectfile("Save Picture", folder.path("plot"));
    EXPECT_TRUE(put('M', shown));
    EXPECT_EQ(shown.bitmaps, std::vector<std::string>{folder.path("plot.bmp")});
    shown.expectfile("Save Picture", folder.path("plot.SVG"));
    EXPECT_TRUE(put('M', shown));
    EXPECT_NE(folder.text("plot.SVG").find("<svg"), std::string::npos);
    shown.expectfile("Save Picture", folder.path("plot.xyz"));
    shown.expectmessage("Unknown File Type");
    EXPECT_FALSE(put('M', shown));
}

TEST_F(OutputTest, AChosenFontGoesBeforeTheOthersAndCannotLeaveItsPlace) {
    ScriptedPlatform shown;
    session.fontName = "Gill' \"Sans\x01";
    ASSERT_TRUE(copyplot());
    EXPECT_NE(shown.clipboardPicture->find("font-family=\"'Gill Sans', DejaVu Sans"), std::string::npos)
        << shown.clipboardPicture->substr(0, 400);
}

TEST_F(OutputTest, ACopiedPlotIsAPictureAndWithTheTotalReportTextToo) {
    ScriptedPlatform shown;
    EXPECT_TRUE(copyplot());
    EXPECT_NE(shown.clipboardPicture->find("<svg"), std::string::npos);
    EXPECT_FALSE(shown.clipboardText.has_value());
    session.totalReport = 1;
    shown.clipboardPicture.reset();
    EXPECT_TRUE(copyplot());
    EXPECT_TRUE(shown.clipboardPicture.has_value());
    EXPECT_NE(shown.clipboardText.value_or("").find("Eta"), std::string::npos);
}

TEST_F(OutputTest, ParametersAndValuesAreCopiedAsText) {
    ScriptedPlatform shown;
    EXPECT_TRUE(put('P', shown));
    EXPECT_NE(shown.clipboardText->find("Eta="), std::string::npos);
    EXPECT_TRUE(copyvalues());
    EXPECT_NE(shown.clipboardText->find("B10="), std::string::npos);
}

TEST_F(OutputTest, APortThatIsNotThereIsADeviceError) {
    session.outputPorts[1] = folder.path("none");
    ScriptedPlatform shown;
    shown.expectmessage("Device Error!!!...");
    EXPECT_FALSE(put('L', shown));
    EXPECT_FALSE(folder.has("none")) << "no file appears where a device should be";
}

TEST_F(OutputTest, PlotterTextGoesToADevice) {
    session.outputPorts[1] = folder.write("device", "");
    ScriptedPlatform shown;
    EXPECT_TRUE(put('L', shown));
    EXPECT_EQ(readhpgl(folder.text("device")).problems, std::vector<std::string>{});
}

TEST(Port, TheTextOfAPortOpenIsReadBack) {
    const FreshSession fresh(lifeSide);
    session.serialBaud = 19200;
    session.serialParity = 'E';
    session.serialDataBits = 8;
    session.serialStopBits = 2;
    EXPECT_EQ(portsetting(portconfig("COM2")), (PortSetting{"COM2", true, 19200, 'E', 8, 2}));
    EXPECT_EQ(portsetting("LPT1"), (PortSetting{"LPT1"}));
    EXPECT_EQ(portsetting("COM1x,?,99,7"), (PortSetting{"COM1", true})) << "what cannot be read is as usual";
    EXPECT_EQ(portpath("/dev/null"), "/dev/null");
    EXPECT_TRUE(portpath("LPT2") == "/dev/usb/lp1" || portpath("LPT2") == "/dev/lp1");
}

TEST(Port, ASerialLineTakesTextAsItComes) {
    const Line line;
    ASSERT_FALSE(line.name.empty());
    PortSink port;
    ASSERT_TRUE(port.open(line.name));
    ASSERT_TRUE(port.write("IN;SP1;"));
    EXPECT_EQ(line.read(), "IN;SP1;") << "before the end of the plot";
    EXPECT_TRUE(port.commit()) << "the line has taken everything";
    EXPECT_FALSE(port.write("PU;")) << "closed";
}

TEST(Port, ASerialLineHasTheParametersOfTheSetting) {
    const Line line;
    ASSERT_FALSE(line.name.empty());
    const int end = ::open(line.name.c_str(), O_WRONLY | O_NOCTTY);
    ASSERT_GE(end, 0);
    EXPECT_TRUE(setserial(end, {"COM1", true, 19200, 'E', 8, 2}));
    termios state{};
    ASSERT_EQ(tcgetattr(end, &state), 0);
    EXPECT_EQ(cfgetospeed(&state), static_cast<speed_t>(B19200));
    EXPECT_NE(state.c_cflag & CSTOPB, 0u) << "two stop bits";
    EXPECT_EQ(state.c_oflag & OPOST, 0u) << "no byte of the text is changed on its way";
    EXPECT_NE(state.c_iflag & IXON, 0u) << "the plotter may hold the flow off";
    EXPECT_FALSE(setserial(end, {"COM1", true, 12345, 'N', 8, 1})) << "a rate of no system";
    ::close(end);
    const int file = ::open("/dev/null", O_WRONLY);
    EXPECT_FALSE(setserial(file, {"COM1", true, 9600, 'N', 8, 1})) << "no serial line";
    ::close(file);
}
