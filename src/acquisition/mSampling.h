// The three frame sources, serial port, socket and replay: read, decoded, recorded, handed to the data windows.
#pragma once

#include "acquisition/cFrameFeed.h"
#include "files/mBinIO.h"
#include "files/mRawLog.h"
#include "platform/iSerialPort.h"
#include "platform/iSocket.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

extern bool FrameSynced;    // the last bytes searched held a sync byte, and its frame was decoded
extern bool gReplaying;     // a raw file is played; cleared to hold it
extern RawFile gReplayFile; // the file that is played

/// Designed interval of the replay timer in milliseconds.
inline constexpr int ReplayInterval = 40;

/// Connects the ports of gHost with the handlers below and starts the watch over the link. Once, at the program's
/// start, when gHost is filled. Second is the socket for a second connection beside a silent one; null: none is tried.
void InitSampling(iSocket* Second);

/// Serial event: takes one frame when gFrameMin bytes wait. A frame whose end has not come yet is left until it has;
/// one that claims more bytes than the input buffer holds is passed on as it is and refused by the decoders.
void MSComm1_OnComm();

/// Socket event: takes the frames that wait while they are above gFrameMin bytes, and shows the last one only.
void tcpServer_DataArrival(std::size_t BytesTotal);

/// The other side closed the connection.
void tcpServer_Close();

// What the two live sources share with a link that a window owns.

/// Bytes that must wait before a frame is taken: gFrameMin.
std::size_t FrameMin();

/// Takes the next frame that has wholly come over a serial port: decodes and records it and offers it to the data
/// windows. Sets when the port reports its next bytes. False when there is none, or the decoder has refused it.
bool TakeOne(iSerialPort& Port, cFrameFeed& Feed);

/// The same with all frames that have come, while at least so many bytes wait. False when none came or the last one was
/// refused.
bool TakeAll(FrameSource From, cFrameFeed& Feed, std::size_t Least);

/// Has the data windows and status panel 2 show the frame that was taken last.
void ShowLive();

/// Replay tick: takes one frame of the file. At its end everything is closed, the data windows too.
void Timer1_Timer();

/// Starts to play a raw file, which ends the link. A missing file does nothing; one that is being recorded is
/// refused (reported to the user).
void StartReplay(const std::string& Path);

/// Sets the interval of the replay timer.
void SetReplayInterval(int Milliseconds);

void StopReplay();

/// Whether a raw file is played or held.
bool IsReplayOpen();

/// Starts the recording of a new sample (StartLog). Where nothing comes, it opens the link first and starts the logger;
/// when there is no port (reported in panel 3) nothing is recorded. When the user gives the recording up, a link that
/// was opened for it is closed again.
void StartRecording();

/// Closes the raw log, the replay file and the dump, as far as they are open.
void StopAll();

/// Whether a recording runs, a raw file is played, or a link is open or being opened.
bool IsAcquiring();

/// Ends all that, for instance before another session with other channels is opened: whole frames that wait are
/// recorded first, then files and link are closed and gData is emptied.
void EndAcquisition();

/// A link was opened: the rest of the former stream is discarded.
void BeginStream();

/// Takes all whole frames that wait, however few, and shows the last one: for the end of a link or of a recording.
void TakeRest();

/// Hands the link's bytes to Taker instead of taking frames from them, as for the logger's set-up; null ends it.
void DivertLink(std::function<void(std::span<const uint8_t>)> Taker);

bool IsLinkDiverted();

/// Watches the link, the windows and the recording; runs a few times a second.
void TickLink();

/// Whether a recording is open into which nothing has flowed for two seconds.
bool IsLogStarving();
