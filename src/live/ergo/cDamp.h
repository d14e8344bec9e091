// The dump of the ergometer panel: a file beside the raw files that is opened and closed by a button. Nothing is
// written to it.
#pragma once

#include <string>

class cDamp
{
public:
    /// Starts a new empty file, which replaces an older one after a question, or ends it. A failure is reported to the
    /// user.
    void Toggle();

    bool IsOpen() const { return !DampFile.empty(); }

    /// Path of the file; empty while none is open.
    const std::string& Path() const { return DampFile; }

private:
    std::string DampFile;
};
