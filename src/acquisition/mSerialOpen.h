// Opening a serial device at a speed that the machine may refuse.
#pragma once

#include "platform/iSerialPort.h"

#include <string>

/// Opens Device with Settings ("57600,n,8,1"). Some machines refuse the logger's fast speed, 256000, which is none of
/// the common ones: there the nearest of these, 230400, is taken, which a logger's line bears (reported in panel 2).
/// False when the device cannot be opened.
bool OpenDevice(iSerialPort& Comm, const std::string& Device, const std::string& Settings, eWaiting Waiting);
