// Folders of the program.
#include "core/shell/fFolders.h"

#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "platform/mHost.h"

#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

std::string ProgramFolder(const std::string& ExecutableFolder, const std::string& UserFolder)
{
    std::error_code Ignored;
    const bool Usable = fs::exists(fs::path(ExecutableFolder) / "Skarvelin.ini", Ignored) ||
                        access(ExecutableFolder.c_str(), W_OK) == 0;
    if (!Usable) fs::create_directories(UserFolder, Ignored);
    return (Usable ? ExecutableFolder : UserFolder) + "/";
}

std::string FindShipped(const std::string& ExecutableFolder, const std::string& Name, const std::string& Holds)
{
    for (const char* Place : {".", "../share/skarvelin", "..", "../..", "../../.."}) {
        const fs::path Folder = (fs::path(ExecutableFolder) / Place / Name).lexically_normal();
        std::error_code Ignored;
        if (fs::exists(Folder / Holds, Ignored)) return Folder.string();
    }
    return {};
}

std::vector<std::string> TemplateFolders(const std::string& ExecutableFolder)
{
    const std::string Shipped = FindShipped(ExecutableFolder, "templates", "Single scull.txt");
    const std::string Own = (fs::path(gAppDir) / "templates").lexically_normal().string();
    return Shipped.empty() || Shipped == Own ? std::vector{Own} : std::vector{Shipped, Own};
}

std::string CopyDemo(const std::string& From, const std::string& Folder)
{
    const fs::path Target = fs::path(Folder) / "demo";
    std::error_code Failed;
    fs::create_directories(Target, Failed);
    for (const char* Name : {"eight.txt", "single.txt"})
        fs::copy_file(fs::path(From) / Name, Target / Name, fs::copy_options::skip_existing, Failed);
    for (const char* Name : {"Targets.ini", "Curves.ini"})
        fs::copy_file(fs::path(From) / Name, fs::path(Folder) / Name, fs::copy_options::skip_existing, Failed);
    const fs::path Session = Target / "eight.txt";
    return fs::exists(Session, Failed) ? Session.string() : std::string();
}

void OfferDemo(const std::string& From, const std::string& Folder)
{
    std::error_code Ignored;
    if (!fs::exists(fs::path(From) / "eight.txt", Ignored)) return;
    if (!AskYesNo("This is the first start here. Open the demonstration session, an eight?", "Welcome")) return;
    SetCurFile(CopyDemo(From, Folder));
    gIsTargVals = gIsTargCurves = 1;
    SaveSetting("gIsTargVals");
    SaveSetting("gIsTargCurves");
}
