// The link of a command to the logger: which one its arguments name, and the loop that it runs on.
#pragma once

#include "batch/mArgs.h"
#include "platform/plain/sEventLoop.h"
#include "platform/plain/sSerialPort.h"
#include "platform/plain/sSocket.h"

#include <functional>
#include <string>

/// What is wrong with --serial and --tcp; empty when one of them names a link.
std::string LinkObjection(const Args& Line);

/// Makes the link that the arguments name the one that is opened.
void SelectLink(const Args& Line);

/// Reports that the serial device cannot be opened. Gives false, so that the caller can return it.
bool ReportNoPort();

/// The host's clock and ports while it lives. Whoever reads the messages may go; the command goes on.
class cBatchLink
{
public:
    cBatchLink();
    ~cBatchLink();
    cBatchLink(const cBatchLink&) = delete;
    cBatchLink& operator=(const cBatchLink&) = delete;

    std::function<void()> OnSignal; // the user or the system wants the program to end

    sEventLoop Loop;

private:
    sSerialPort Port{Loop};
    sSocket Socket{Loop};
    sSocket SecondSocket{Loop};
    int Signals;
};
