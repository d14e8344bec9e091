// The link to the logger: what each logger model needs, finding a serial port, opening and closing.
#pragma once

#include "acquisition/cLinkWatch.h"
#include "acquisition/cSocketPair.h"
#include "platform/iSerialPort.h"

#include <cstdint>
#include <span>
#include <string>

/// A group of logger models with one set of link values.
struct LoggerModel
{
    int16_t First; // values of gFile.Model
    int16_t Last;
    const char* Caption;
    const char* Settings; // of the serial line; null: speed by the setting gQVNbauds
    int16_t ChanCnt;      // 0: by the number of slaves and their channels
    int16_t FrameMin;
};

/// All models in the order of their numbers.
std::span<const LoggerModel> LoggerModels();

/// The group of a model, null for another.
const LoggerModel* FindModel(int16_t Model);

// The commands that begin and end the logger's set-up.
inline constexpr const char* SetUpCommand = "#SETUP";
inline constexpr const char* RunCommand = "#RUN";

/// Watches the link that is open or being opened.
extern cLinkWatch gLinkWatch;

/// The connection to a wireless logger.
extern cSocketPair gLinkSocket;

/// No link was asked for yet.
void InitLink();

/// The link that the settings select, as the user knows it: "COM port 1", or address and port.
std::string LinkName();

/// The serial device that the settings select, empty when the machine has no port of that number.
std::string SelectedDevice(const iSerialPort& Comm);

/// Looks for a serial port that Comm can open with Settings ("57600,n,8,1"), first number gCOMport, then 1 to 16.
/// Another number than before is stored in gCOMport and the ini file. False when there is none. A device named by path
/// needs no search.
bool FindPort(iSerialPort& Comm, const std::string& Settings);

/// Opens the link that gConnection selects. A link that is already open stays open, since frames would be lost; only
/// the sampling period is updated from gDataFreq. A connection to a wireless logger is made in the background, and
/// retried as long as it takes. False when there is no serial port (reported in panel 3): then the session, a
/// running replay and the link in use are as before; and when a window has a link of its own (reported in panel 3).
bool OpenLink();

/// The settings of a serial line to the session's logger model.
std::string LineOfModel();

/// Gives the session the number of channels that its logger model sends, and gFrameMin the model's least frame.
void TakeModelSizes();

/// A new stream of frames of a live link begins: gData, counts and the cycle clock start anew.
void BeginLive();

/// Closes the link and stores in the session whether its samples are signed.
void CloseLink();

/// Closes a link that windows or a recording have used once the last of them is closed, unless a recording runs.
void CloseUnusedLink();

/// Asks the logger to stream, now or once the link is open, and again whenever a lost link is open again.
void SendRun();

/// Puts the logger in set-up mode: from then on it is silent on purpose, and no second connection is tried. False when
/// the link is not open.
bool SendSetUp();

/// Sends Text over the link; false when it is not open.
bool SendText(const std::string& Text);

/// Ends the logger's set-up: it is asked to stream. A link that no window needs is closed as soon as the logger can
/// have taken that.
void EndSetUp();

// Events of the ports.

/// The link is open: bytes received before are discarded.
void LinkOpened();

/// The link broke or could not be made. Whole frames that have come are taken first.
void LinkLost(const std::string& Reason);

/// Tries to open a lost link again: the same port, or a serial device that did not exist when it was opened, since an
/// adapter may come back under another name.
void ReopenLink();

/// Tries a second connection beside a silent wireless link that was asked to stream. One that was not, as during the
/// logger's set-up, is silent on purpose.
void TryBeside();

/// The second connection is about to replace the first.
void LinkReplaced();

/// Closes the link, whichever it is. gFrameMin is 0 again.
void DropLink();
