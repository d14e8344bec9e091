// Any bytes as a session data file: read, written, and what was written reads back alike.
#include "base/mCodePage.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "core/mTextRows.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "platform/plain/sDialogs.h"
#include "platform/plain/sSettings.h"
#include "platform/plain/sStatus.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <unistd.h>

namespace {
const std::string& Folder()
{
    static const std::string Name =
        (std::filesystem::temp_directory_path() / ("skarvelin-fuzz-" + std::to_string(getpid()))).string() + "/";
    return Name;
}

void SetUp()
{
    static sStatus Status(false);
    static sDialogs Dialogs;
    static sSettings Settings;
    gHost = {};
    gHost.Dialogs = &Dialogs;
    gHost.Status = &Status;
    gHost.Settings = &Settings;
    LoadSettings();
    gExpSTD = 1;
    std::filesystem::create_directories(Folder());
    std::atexit([] { std::filesystem::remove_all(Folder()); });
}

// Whether a row begins with a word that means something else to the reader, which the format cannot help.
bool HasMisleadingRow(std::string_view Text)
{
    static const std::set<std::string_view> Keywords = {
        "Main", "Sess", "Crew", "Calibr", "View1",   "View3",   "View4",   "Boat",      "Desc",
        "Data", "Calc", "STD",  "Models", "VidDots", "VidSegs", "VideoID", "VidCoords", "VidAngles"};
    LineReader Lines(Text);
    for (std::string_view Line; Lines.Take(Line);) {
        const auto Tab = Line.find('\t');
        if (Tab == std::string_view::npos) continue;
        if (Line.starts_with("End") || Keywords.contains(Line.substr(0, Tab))) return true;
    }
    return false;
}

bool Read(const std::string& Bytes)
{
    const std::string Path = Folder() + "session.txt";
    std::filesystem::remove(Path);
    gFile = {};
    gDots.Clear();
    gSegs.Clear();
    gVideoID.Clear();
    return SaveWhole(Path, Bytes, Durability::Fast) && ReadDataFile(Path, gFile, SectionFilter::Any);
}

// Bytes of what was read; aborts when they do not stand for its text.
std::string Written()
{
    const std::string Text = DataFileText(gFile, SectionFilter::Any);
    const std::string Bytes = EncodeText(Text, gFile.Encoding, TextPage());
    TextEncoding Encoding{};
    if (DecodeText(Bytes, Encoding, TextPage()) != Text) std::abort();
    return Bytes;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, std::size_t Size)
{
    static const bool Ready = (SetUp(), true);
    static_cast<void>(Ready);
    gCodePage = Size % 2 == 0 ? 1252 : 1251;
    if (!Read({reinterpret_cast<const char*>(Data), Size})) return 0;
    const std::string First = Written();
    if (!Read(First)) std::abort();
    if (HasMisleadingRow(First)) return 0;
    // A number that rounding took over a power of ten has its last form after the second reading only.
    const std::string Second = Written();
    if (!Read(Second) || Written() != Second) std::abort();
    return 0;
}
