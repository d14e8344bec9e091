// Speed and form of the characters on a serial line.
#pragma once

#include <string>

/// Sets the line of an open descriptor to Settings as "57600,n,8,1", binary and without handshaking, at any speed that
/// the hardware can make. False when it is no serial line or the settings are none.
bool SetSerialLine(int Descriptor, const std::string& Settings);

/// Speed of the line of an open descriptor in baud; 0 when it is no serial line.
int SerialSpeed(int Descriptor);
