// A folder of its own for a test, removed with all that is in it when the test ends.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <stdlib.h>
#include <string>

class TempFolder
{
public:
    TempFolder() : Root((std::filesystem::temp_directory_path() / "skarvelin-test-XXXXXX").string())
    {
        if (!mkdtemp(Root.data())) throw std::runtime_error("no temporary folder");
        Root += "/";
    }
    ~TempFolder()
    {
        std::error_code Error;
        std::filesystem::remove_all(Root, Error);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Path of a file in the folder; of the folder itself, with the separator behind it, for an empty name.
    std::string Path(const std::string& Name) const { return Root + Name; }

private:
    std::string Root;
};
