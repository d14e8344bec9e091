// Recordings by their kind.
#include "views/play/mPlayLoad.h"

#include "files/mBinIO.h"
#include "files/mOldBin.h"
#include "platform/mHost.h"

#include <algorithm>
#include <filesystem>

namespace {
bool ReadRecording(const std::string& Path)
{
    int32_t Start = 0, Stop = 0;
    return ReadRawFile(Path, Start, Stop);
}
} // namespace

bool LoadPrimary(const std::string& Path, PlayData& Data)
{
    const std::filesystem::path File(Path);
    const bool IsRaw = File.extension() == ".qvn" || File.extension() == ".QVN";
    const bool IsRead = Guard(Path, [&] { return IsRaw ? ReadRecording(Path) : ReadOldFile(Path); });
    if (!IsRead) return false;
    Data.Mode = PlayPrimary;
    Data.FileName = File.filename().string();
    const int Row = FindDesc(gFile, Data.FileName, IsRaw ? DescKey::RawFN : DescKey::PrimFN);
    Data.Sample = static_cast<int16_t>(std::max(Row, 0));
    return true;
}
