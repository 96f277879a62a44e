#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

/// Ports by the names that plotters and printers are set up with.

/// What the text of a port open says: "COM19600,S,7,1,RS,CS65535,DS,CD".
struct PortSetting {
    std::string name;    ///< "COM1", "LPT1", or a path
    bool serial = false; ///< the parameters below hold
    double baud = 9600;  ///< a rate that the system knows
    char parity = 'N';   ///< N none, E even, O odd, M mark, S space
    int dataBits = 8;    ///< 5 to 8
    double stopBits = 1; ///< 1, 1.5 (as 2) or 2
    bool operator==(const PortSetting&) const = default;
};

/// Takes the text of a port open apart. A name that is no port stays as it is; parameters that are missing or
/// cannot be read keep the values above.
PortSetting portsetting(std::string_view text);

/// The device of a port: COM1 is the first serial line, LPT1 the first printer line. A name that is no port
/// is a path already.
std::string portpath(const std::string& name);

/// Puts the parameters on an open serial line. False for a rate that the system does not know, and for a
/// device that is no serial line; errno tells why.
bool setserial(int line, const PortSetting& setting);

/// Text to a port or a device path. A serial line is opened with its parameters; each write goes out as it
/// comes, as fast as the device takes it, and a device that takes nothing for a minute has failed. open()
/// false: errno tells why, ENXIO, ENODEV or EBUSY when the device is not there or held by another.
class PortSink : public TextSink {
public:
    /// The time that the device may take nothing.
    explicit PortSink(int milliseconds = 60000) : patience(milliseconds) {}
    ~PortSink() override { drop(); }
    PortSink(const PortSink&) = delete;
    PortSink& operator=(const PortSink&) = delete;

    bool open(const std::string& path) override;
    bool write(std::string_view text) override;
    bool commit() override;
    void drop() override;

private:
    int patience;
    int line = -1;
    bool serial = false;
};
