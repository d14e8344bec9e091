// The global state itself and the look-ups by identifier.
#include "core/mGlobData.h"

#include "base/mNumText.h"
#include "platform/mHost.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <utility>

DataFile gFile;
RowArray<DotRow> gDots;
RowArray<SegRow> gSegs;
RowArray<VideoIDRow> gVideoID;
RowArray<VidCoordsRow> gVidCoords;
RowArray<VidCoordsRow> gVidAngles;
std::array<double, LastDataChan + 1> gData{};
SampleStore gRaw;
double gRawStart = 0;
double gRawStop = 0;

double gTimeStep = 0;
double gDeltaT = 0;
int16_t gFrameMin = 0;
int32_t gFrameCnt = 0;
double gSampleTime = 0;
double gFrequency = 0;
int32_t gMissed = 0;
int16_t gKeyChan = 0;
double gKeyQ0 = 0;
double gKeyQ1 = 0;
int16_t gKeyMode = 0;
int16_t gH1Chan = 0;
double gH1Q0 = 0;
double gH1Q1 = 0;
std::string gCurFile;
std::string gFileTitle;
std::string gCurDir;
std::string gSessID;
std::string gRawFN;
bool gFromFile = false;
double gRate = 0;
int16_t gStrokeCnt = 0;
bool gFirstCycle = true;
double gCycleTime = 0;
double gCycleSum = 0;
double gRateAver = 0;
double gPlayTime = 0;
int32_t gPlayIdx = 0;
double gPlayStep = 0.04;
int32_t gPlayFrame = 0;
int32_t gVidMs = 40;

namespace {
template <class Row>
void SetRows(RowArray<Row>& Rows, const std::string& SessID)
{
    for (Row& Each : Rows)
        Each.SessID = SessID;
}

const std::string& FieldOf(const DescRow& Row, DescKey Field)
{
    if (Field == DescKey::TestID) return Row.SampleID;
    return Field == DescKey::RawFN ? Row.RawFN : Row.PrimFN;
}

void ResolveFactors(int16_t Chan, double& Q0, double& Q1)
{
    const bool Known = Chan > 0 && Chan <= gFile.Calibr.UBound();
    Q0 = Known ? gFile.Calibr[Chan].Q0 : 0;
    Q1 = Known ? gFile.Calibr[Chan].Q1 : 0;
}
} // namespace

void SetCurFile(const std::string& Path)
{
    const std::filesystem::path Name(Path);
    gCurFile = Path;
    gFileTitle = Name.stem().string();
    gCurDir = Name.has_parent_path() ? (Name.parent_path() / "").string() : "";
    gHost.Status->SetPanel(1, gFileTitle);
}

void SetSessID(const std::string& Path, DataFile& File)
{
    File.SessID = std::filesystem::path(Path).stem().string();
    SetRows(File.Crew, File.SessID);
    SetRows(File.Calibr, File.SessID);
    SetRows(File.Desc, File.SessID);
    SetRows(File.Data, File.SessID);
    SetRows(File.Boat, File.SessID);
}

int16_t FindChan(const RowArray<CalibrRow>& Table, const std::string& ParamID)
{
    if (ParamID.empty()) return -1;
    for (const CalibrRow& Row : Table)
        if (Row.ParamID == ParamID) return Row.Chan;
    return -1;
}

int FindData(const RowArray<DataRow>& Table, const std::string& SampleID, const std::string& ParamID)
{
    for (int i = 1; i <= Table.UBound(); ++i)
        if (Table[i].SampleID == SampleID && Table[i].ParamID == ParamID) return i;
    return -1;
}

int FindDesc(const DataFile& File, const std::string& Key, DescKey Field)
{
    if (Key.empty()) return -1;
    for (int i = 1; i <= File.Desc.UBound(); ++i)
        if (FieldOf(File.Desc[i], Field) == Key) return i;
    return -1;
}

void ResolveChannels()
{
    gKeyChan = FindChan(gFile.Calibr, gFile.KeyChanID);
    ResolveFactors(gKeyChan, gKeyQ0, gKeyQ1);
    gH1Chan = FindChan(gFile.Calibr, "H1");
    ResolveFactors(gH1Chan, gH1Q0, gH1Q1);
}

void CreateData()
{
    gData.fill(0);
}

void FindTimeIdx(double Time)
{
    if (gRaw.UBound() < 0) return;
    const auto Times = gRaw.Channel(0);
    gPlayIdx = std::clamp(gPlayIdx, 0, gRaw.UBound());
    while (gPlayIdx < gRaw.UBound() && Times[static_cast<std::size_t>(gPlayIdx) + 1] <= Time)
        ++gPlayIdx;
    while (gPlayIdx > 0 && Times[static_cast<std::size_t>(gPlayIdx)] > Time)
        --gPlayIdx;
}
