// A link to the logger that a window owns, used while the main window's link is closed. Frames come from one place at a
// time: this link, the main window's link or a replay.
#pragma once

#include "acquisition/cFrameFeed.h"
#include "acquisition/cLinkWatch.h"
#include "platform/iSerialPort.h"
#include "platform/iSocket.h"

#include <string>

class cOwnLink
{
public:
    /// Name is the window's, as "The ergometer panel". Its port and socket must outlive the link.
    cOwnLink(std::string Name, iSerialPort& InitPort, iSocket& InitSocket);
    ~cOwnLink() { Close(); }
    cOwnLink(const cOwnLink&) = delete;
    cOwnLink& operator=(const cOwnLink&) = delete;

    /// Opens the link that the settings select and asks the logger to stream. As long as that cannot be done, because
    /// the port is taken, the main window's link is open or a recording is played, Tick tries again.
    void Open();

    /// Closes it for good; whole frames that wait are recorded first.
    void Close();

    /// Closes it until nothing else brings frames.
    void Suspend();

    /// Takes the frames that have come, notices silence, tries again what could not be opened, and follows the settings
    /// to another link unless a recording runs. To be called many times a second.
    void Tick();

    /// Takes all whole frames that wait, however few.
    void TakeRest();

    /// The state in plain words: what it is connected to, or why it is not.
    std::string Words() const;

    cLinkWatch& Watch() { return State; }
    const std::string& Owner() const { return Window; }

private:
    void TryOpen();
    void OpenSerial();
    void Connect();
    void Opened();
    void Lost(const std::string& Reason);
    void Refuse(const std::string& Reason);

    std::string Window;
    iSerialPort& Port;
    iSocket& Socket;
    cFrameFeed FromPort;
    cFrameFeed FromSocket;
    cLinkWatch State;
    std::string Tried; // name of the link that was opened or tried last
    bool IsWanted = false;
    bool WasOpen = false; // since Open: a line that comes back goes on with all that was sent
};

/// The link that a window has opened in place of the main window's, null when there is none.
extern cOwnLink* gOwnLink;
