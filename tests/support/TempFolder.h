// A folder of its own for a test, removed with all that is in it when the test ends.
#pragma once

#include <string>

class TempFolder
{
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Path of a file in the folder; of the folder itself, with the separator behind it, for an empty name.
    std::string Path(const std::string& Name) const { return Root + Name; }

private:
    std::string Root;
};
