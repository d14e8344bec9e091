// A main window on scripted dialogs, with its own folder and settings in memory.
#pragma once

#include "acquisition/mSampling.h"
#include "core/frmMain.h"
#include "core/mHost.h"
#include "platform/qt/qClock.h"
#include "platform/qt/qSerialPort.h"
#include "platform/qt/qSocket.h"
#include "platform/qt/qText.h"
#include "support/Case.h"

#include <QAction>
#include <QTest>

struct ShellState : FreshState
{
    qClock Clock;
    qStatus Panels;
    qSerialPort SerialPort;
    qSocket Socket;
    frmMain Main{Panels};

    ShellState()
    {
        gHost.Clock = &Clock;
        gHost.Status = &Panels;
        gHost.SerialPort = &SerialPort;
        gHost.Socket = &Socket;
        InitSampling();
    }

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
