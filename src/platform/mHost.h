// The program that the engine runs in: its dialogs, status line and settings store, and the guard of every entry point.
#pragma once

#include "platform/iClock.h"
#include "platform/iDialogs.h"
#include "platform/iMedia.h"
#include "platform/iSerialPort.h"
#include "platform/iSettings.h"
#include "platform/iSocket.h"
#include "platform/iStatus.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// The platform services in use. Filled by the program's main function or by a test before anything else runs.
struct Host
{
    iDialogs* Dialogs = nullptr;
    iStatus* Status = nullptr;
    iSettings* Settings = nullptr;
    iClock* Clock = nullptr; // these three: null in a program without a link
    iSerialPort* SerialPort = nullptr;
    iSocket* Socket = nullptr;
    std::function<std::unique_ptr<iMedia>()> MakeMedia{}; // a clip for each window; empty where no video can be read
};
extern Host gHost;

// The titles of message boxes.
inline constexpr const char* TitleWarning = "Warning!";
inline constexpr const char* TitleError = "Error";
inline constexpr const char* TitleInformation = "Information";

/// Shows a message with one OK button.
void MsgBox(const std::string& Text, const std::string& Title);

// What could not be done with a file.
inline constexpr const char* CantOpen = "Can't open file: ";
inline constexpr const char* CantRead = "Can't read file: ";
inline constexpr const char* CantWrite = "Can't write file: ";

/// Reports what could not be done with the file at Path, with the reason where one is known. Gives false, so that the
/// caller can return it.
bool FileFailed(const std::string& What, const std::string& Path, const std::string& Title,
                const std::string& Reason = "");

/// Asks a question; true when it was answered Yes.
bool AskYesNo(const std::string& Text, const std::string& Title);

/// Asks whether to go on; true when it was answered OK.
bool AskOkCancel(const std::string& Text, const std::string& Title);

/// Asks for a line of text. Cancelling gives an empty text.
std::string InputBox(const std::string& Prompt, const std::string& Title, const std::string& Proposed);

/// Asks for a file with that extension, starting in Folder when given. Cancelling gives an empty text.
std::string ExecComDlg(const std::string& Title, const std::string& Ext, eFileMode Mode,
                       const std::string& Folder = "");

/// Whether one of these is open and waits for its answer.
bool IsAsking();

/// Shows the running text in status panel 2.
void UpdateStatus(const std::string& Text);

/// Shows link state and progress of file reading in status panel 3.
void ShowReading(const std::string& Text);

/// Moves the progress bar, 0 to 100.
void UpdateProgress(int Percent);

/// Shows the progress of a long operation. False when the user has cancelled it: it ends and undoes its changes.
bool GoOn(int Percent);

/// In a catch block: why the work failed, a RunError or memory that could not be had. Throws any other exception again.
std::string FailureReason();

/// Runs Work and returns its result. A RunError, or memory that cannot be had, is shown as one message, which names
/// What failed, and gives false.
bool Guard(const std::string& What, const std::function<bool()>& Work);

/// The same, but the message is added to Failures: for work in several parts, some of which may fail.
bool Guard(const std::string& What, std::vector<std::string>& Failures, const std::function<bool()>& Work);
