// What every serial port and socket must do, over real links.
#pragma once

#include "platform/iSerialPort.h"
#include "platform/iSocket.h"

#include <functional>

/// Lets the links' events run for so many milliseconds.
using LinkWait = std::function<void(int)>;

/// Bytes ahead of the opening dropped, thresholds, bytes left unread, all as they are, commands, what is no line.
void CheckSerialPort(iSerialPort& Port, const LinkWait& Wait);

/// A line that hangs up again and again: what came before that and ahead of the opening is given, each is reported
/// once, and nothing leaks.
void CheckHangUps(iSerialPort& Port, const LinkWait& Wait);

/// Connection, data, and each way in which it ends; cases with subcases.
void CheckSocket(iSocket& Socket, const LinkWait& Wait);
