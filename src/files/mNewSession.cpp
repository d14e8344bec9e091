// The steps from a session in memory to an open one in a new file.
#include "files/mNewSession.h"

#include "base/mError.h"
#include "base/mSafeSave.h"
#include "core/mNotice.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "processing/mRefTable.h"

#include <filesystem>
#include <vector>

namespace fs = std::filesystem;

namespace {
// Folders made on the way to a file. Unless they are to stay, those that are still empty are removed at the end.
class cMadeFolders
{
public:
    explicit cMadeFolders(const fs::path& Folder)
    {
        for (fs::path Each = Folder; !Each.empty() && !fs::exists(Each, Error); Each = Each.parent_path())
            Made.push_back(Each);
        fs::create_directories(Folder, Error);
    }
    ~cMadeFolders()
    {
        std::error_code Ignored;
        if (!Stays)
            for (const fs::path& Each : Made)
                fs::remove(Each, Ignored);
    }
    cMadeFolders(const cMadeFolders&) = delete;
    cMadeFolders& operator=(const cMadeFolders&) = delete;

    std::error_code Error; // why the folder could not be made
    bool Stays = false;

private:
    std::vector<fs::path> Made; // from the innermost out
};

// The samples stay with the file that they were recorded for.
void DropSamples(DataFile& File)
{
    File.SampleCnt = 0;
    File.Desc.Clear();
    File.Data.Clear();
    File.STD.Clear();
    File.Models.Clear();
}

bool WriteNew(const std::string& Path, const DataFile& New, const std::string& RefFolder)
{
    const fs::path Folder = fs::path(Path).parent_path();
    cMadeFolders Folders(Folder);
    if (Folders.Error)
        return FileFailed("Can't make the folder: ", Folder.string(), TitleWarning,
                          SystemReason(Folders.Error.value()));
    Folders.Stays = CarryRefTables(New, RefFolder, Folder.string()) && BackupFile(Path) &&
                    WriteWithPoints(Path, New, SectionFilter::Non);
    return Folders.Stays;
}
} // namespace

bool CarryRefTables(const DataFile& File, const std::string& From, const std::string& To)
{
    for (const CalibrRow& Row : File.Calibr) {
        if (Row.ProcMode != ApproxRefTable) continue;
        const auto Bytes = ReadWhole(From + Row.SensorID + ".ref");
        const std::string Path = (fs::path(To) / (Row.SensorID + ".ref")).string();
        if (Bytes && ReadWhole(Path) != Bytes && !SaveWhole(Path, *Bytes))
            return FileFailed(CantWrite, Path, TitleWarning);
    }
    return true;
}

bool StartSession(const std::string& Path, DataFile New, const std::string& RefFolder)
{
    DropSamples(New);
    SetSessID(Path, New);
    if (!WriteNew(Path, New, RefFolder)) return false;
    gFile = std::move(New);
    SetCurFile(Path);
    gSessID = gFileTitle;
    gKeyMode = IsKeyMode(gFile.KeyMode) ? gFile.KeyMode : gKeyModeSet;
    LoadRefTables();
    ResolveChannels();
    CreateData();
    Notify(eNotice::SessionReplaced);
    return true;
}
