// A main window on scripted dialogs, with its own folder and settings in memory.
#pragma once

#include "acquisition/mSampling.h"
#include "core/shell/frmMain.h"
#include "platform/mHost.h"
#include "platform/qt/qClock.h"
#include "platform/qt/qSerialPort.h"
#include "platform/qt/qSocket.h"
#include "platform/qt/qText.h"
#include "support/Case.h"

#include <QAction>
#include <QTest>

/// A frame of a slave with eight channels: sync, head, time in ms, seven bytes that nobody reads, channels, end.
inline QByteArray MakeFrame(int Time, int Count)
{
    QByteArray Bytes("\x80\x00\x1c\x00", 4);
    for (int i = 0; i < 5; ++i, Time /= 128)
        Bytes.append(static_cast<char>(Time % 128));
    Bytes.append(7, '\0');
    for (int i = 0; i < 8; ++i)
        Bytes.append(static_cast<char>(Count % 128)).append(static_cast<char>(Count / 128));
    return Bytes.append('\0');
}

struct ShellState : FreshState
{
    qClock Clock;
    qStatus Panels;
    qSerialPort SerialPort;
    qSocket Socket;
    qSocket SecondSocket;
    frmMain Main{Panels};

    ShellState()
    {
        gHost.Clock = &Clock;
        gHost.Status = &Panels;
        gHost.SerialPort = &SerialPort;
        gHost.Socket = &Socket;
        InitSampling(&SecondSocket);
    }

    // A recording that a case leaves open would be the next one's.
    ~ShellState() { StopAll(); }

    template <class Control>
    Control& Find(const char* Name)
    {
        auto* Found = Main.findChild<Control*>(Name);
        REQUIRE_MESSAGE(Found, Name);
        return *Found;
    }
    void Choose(const char* Name) { Find<QAction>(Name).trigger(); }
    void Click(const char* Name) { QTest::mouseClick(&Find<QWidget>(Name), Qt::LeftButton); }

    /// Loads and shows the window, with an ini file of that text.
    void Start(const std::string& Ini = "");
};
