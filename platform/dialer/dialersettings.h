#pragma once

#include <QString>

namespace hb::dialer {

// How the dialer reaches the telephone network. An empty port means the desktop's handler of tel: links.
struct DialerSettings {
    QString port;                          // a serial port name such as "ttyUSB0", or empty
    int speed = 9600;                      // bits per second
    bool pulse = false;                    // ATDP instead of ATDT
    QString prefix;                        // dialed before the number, such as "9," for an outside line
    QString initString = defaultInit();    // sent after the reset
    int waitSeconds = 45;                  // how long the modem may take to answer the dial command
    QString homeCountry = QStringLiteral("US");  // region code by which numbers without a country code are read

    bool usesModem() const { return !port.isEmpty(); }
    // Verbose result codes, and busy and dial tone detection.
    static QString defaultInit() { return QStringLiteral("ATV1X4"); }
};

} // namespace hb::dialer
