// Raw counts as text.
#include "files/mDump.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "platform/mHost.h"

#include <algorithm>
#include <fstream>

bool gDumping = false;

namespace {
std::ofstream gDumpFile;
std::string DumpPath;
int DumpChans = 0;
int DumpCnt = 0; // frames written

// Each line is handed to the operating system before the next frame comes.
void WriteLine(const std::string& Line)
{
    gDumpFile << Line << "\r\n" << std::flush;
    if (gDumpFile) return;
    StopDump();
    FileFailed(CantWrite, DumpPath, TitleError);
}
} // namespace

bool StartDump(const std::string& Path)
{
    StopDump();
    DumpPath = Path;
    DumpChans = std::clamp<int>(gFile.ChanCnt, 0, LastDataChan);
    DumpCnt = 0;
    gDumpFile.open(Path, std::ios::binary | std::ios::trunc);
    if (!gDumpFile) {
        gDumpFile.clear();
        return FileFailed(CantOpen, Path, TitleError);
    }
    gDumping = true;
    std::string Head = "N\tT\t";
    for (int Chan = 1; Chan <= DumpChans; ++Chan)
        Head.append(FormatNum(Chan, "0")).append("\t");
    WriteLine(Head);
    return gDumping;
}

void DumpFrame()
{
    if (!gDumping) return;
    std::string Line = FormatNum(DumpCnt++, "0");
    Line.append("\t").append(FormatNum(gData[0], "0.000")).append("\t");
    for (int Chan = 1; Chan <= DumpChans; ++Chan)
        Line.append(FormatNum(gData[static_cast<std::size_t>(Chan)], "0")).append("\t");
    WriteLine(Line);
}

void StopDump()
{
    gDumping = false;
    gDumpFile.close();
    gDumpFile.clear();
}
