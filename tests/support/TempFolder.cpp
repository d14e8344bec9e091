// Making and removing a test's folder.
#include "support/TempFolder.h"

#include <filesystem>
#include <stdexcept>
#include <stdlib.h>

TempFolder::TempFolder()
{
    std::string Name = (std::filesystem::temp_directory_path() / "skarvelin-test-XXXXXX").string();
    if (!mkdtemp(Name.data())) throw std::runtime_error("no temporary folder");
    Root = Name + "/";
}

TempFolder::~TempFolder()
{
    std::error_code Error;
    std::filesystem::remove_all(Root, Error);
}
