// Where the engine shows what it is doing: the panels and the progress bar of the status line.
#pragma once

#include <string>

class iStatus
{
public:
    virtual ~iStatus() = default;

    /// Shows Text in panel 1 (file), 2 (running text) or 3 (link and reading of files).
    virtual void SetPanel(int Panel, const std::string& Text) = 0;

    /// Shows how far long work has come, 0 to 100.
    virtual void SetProgress(int Percent) = 0;

    /// Whether the user has asked since the last call to cancel the long operation that is running.
    virtual bool IsCancelled() { return false; }
};
