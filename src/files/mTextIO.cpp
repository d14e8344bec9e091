// The front door of the session data file: which section goes where, the order of writing, and the backup.
#include "files/mTextIO.h"

#include "core/mHost.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "files/mCodePage.h"
#include "files/mSafeSave.h"
#include "files/mTextMain.h"
#include "files/mTextSamples.h"
#include "files/mTextVideo.h"
#include "processing/mRefTable.h"

#include <filesystem>

namespace {
template <class Row>
void NameSession(RowArray<Row>& Rows)
{
    for (Row& Each : Rows)
        Each.SessID = gSessID;
}

// A crew line that stops within its sixth field still gives the weight.
void ReadCrew(LineReader& Lines, RowArray<CrewRow>& Rows)
{
    constexpr std::size_t BeforeWeight = 5;
    LineFields Cells;
    Rows.Clear();
    for (std::string_view Line; Lines.TakeRow(Line);) {
        Cells.Cut(Line);
        if (Cells.Closed.size() == BeforeWeight) Cells.Closed.push_back(Cells.Open);
        SetFields<CrewRow>(Rows.Grow(), CrewFields(), Cells.Closed);
    }
    NameSession(Rows);
}

// The oldest files name the session ahead of each channel.
void ReadCalibr(LineReader& Lines, DataFile& File)
{
    LineFields Cells;
    File.Calibr.Clear();
    for (std::string_view Line; Lines.TakeRow(Line);) {
        Cells.Cut(Line);
        const std::size_t Skipped = File.Model == 0 && !Cells.Closed.empty() ? 1 : 0;
        CalibrRow& Row = File.Calibr.Grow();
        SetFields<CalibrRow>(Row, CalibrFields(), std::span(Cells.Closed).subspan(Skipped));
        Row.Chan = ToInt16(File.Calibr.UBound());
    }
    NameSession(File.Calibr);
    File.ChanCnt = ToInt16(File.Calibr.UBound());
    LoadRefTables();
}

void ReadBoat(LineReader& Lines, RowArray<BoatRow>& Rows)
{
    ReadClosedRows(Lines, BoatFields(), Rows);
    NameSession(Rows);
}

void ReadDesc(LineReader& Lines, RowArray<DescRow>& Rows)
{
    ReadSplitRows(Lines, DescFields(), Rows);
    NameSession(Rows);
}

void ReadView1(LineReader& Lines, DataFile& File)
{
    ReadSplitRows(Lines, ViewFields(), File.View1);
    File.View1Cnt = ToInt16(File.View1.UBound());
}

struct Section
{
    std::string_view Keyword;
    bool IsOfSamples; // left out by the filter Non
    void (*Read)(LineReader& Lines, DataFile& File);
};

constexpr Section Sections[] = {
    {"Main", false, ReadMain},
    {"Sess", false, ReadSess},
    {"Crew", false, [](LineReader& Lines, DataFile& File) { ReadCrew(Lines, File.Crew); }},
    {"Calibr", false, ReadCalibr},
    {"View1", false, ReadView1},
    {"View3", false, [](LineReader& Lines, DataFile& File) { ReadSplitRows(Lines, ViewFields(), File.View3); }},
    {"View4", false, [](LineReader& Lines, DataFile& File) { ReadSplitRows(Lines, ViewFields(), File.View4); }},
    {"Boat", false, [](LineReader& Lines, DataFile& File) { ReadBoat(Lines, File.Boat); }},
    {"Desc", true, [](LineReader& Lines, DataFile& File) { ReadDesc(Lines, File.Desc); }},
    {"Data", true, [](LineReader& Lines, DataFile& File) { ReadSampleRows(Lines, File, File.Data); }},
    {"Calc", true, [](LineReader& Lines, DataFile& File) { ReadSampleRows(Lines, File, File.Data); }},
    {"STD", true, [](LineReader& Lines, DataFile& File) { ReadSampleRows(Lines, File, File.STD); }},
    {"Models", true, [](LineReader& Lines, DataFile& File) { ReadSampleRows(Lines, File, File.Models); }},
    {"VidDots", false, [](LineReader& Lines, DataFile&) { ReadSplitRows(Lines, DotFields(), gDots); }},
    {"VidSegs", false, [](LineReader& Lines, DataFile&) { ReadSplitRows(Lines, SegFields(), gSegs); }},
    {"VideoID", false, [](LineReader& Lines, DataFile&) { ReadSplitRows(Lines, VideoIDFields(), gVideoID); }},
    {"VidCoords", false, [](LineReader& Lines, DataFile&) { ReadVideoPoints(Lines, gVidCoords); }},
    {"VidAngles", false, [](LineReader& Lines, DataFile&) { ReadVideoPoints(Lines, gVidAngles); }},
};

void ReadSections(std::string_view Text, DataFile& File, SectionFilter Filter)
{
    LineReader Lines(Text);
    for (std::string_view Line; Lines.Take(Line);) {
        const std::string_view Keyword = Line.substr(0, Line.find('\t'));
        for (const Section& Each : Sections)
            if (Each.Keyword == Keyword && !(Each.IsOfSamples && Filter == SectionFilter::Non)) Each.Read(Lines, File);
    }
}

void AppendCalibr(std::string& Text, const DataFile& File)
{
    Text += "Calibr\r\n";
    for (const CalibrRow& Row : File.Calibr) {
        if (File.Model == 0) Text.append(Row.SessID).append("\t");
        AppendFields(Text, Row, CalibrFields());
        Text += "\r\n";
    }
    Text += "End\r\n";
}

bool TellFailure(const std::string& What, const std::string& Path, const std::string& Reason)
{
    MsgBox(What + Path + (Reason.empty() ? "" : " (" + Reason + ")"), TitleWarning);
    return false;
}
} // namespace

bool ReadDataFile(const std::string& Path, DataFile& File, SectionFilter Filter)
{
    const auto Bytes = ReadWhole(Path);
    if (!Bytes) return TellFailure("Can't open file: ", Path, "");
    const std::string Text = DecodeText(*Bytes, File.Encoding);
    File.Model = 0;
    File.SampleCnt = 0;
    File.Desc.Clear();
    File.Data.Clear();
    gSessID = std::filesystem::path(Path).stem().string();
    ReadSections(Text, File, Filter);
    return true;
}

std::string DataFileText(const DataFile& File, SectionFilter Filter)
{
    std::string Text;
    if (File.Model != 0) AppendMain(Text, File);
    AppendSess(Text, File);
    AppendRows(Text, "Crew", CrewFields(), File.Crew);
    AppendCalibr(Text, File);
    AppendRows(Text, "View1", ViewFields(), File.View1);
    AppendRows(Text, "View3", ViewFields(), File.View3);
    AppendRows(Text, "View4", ViewFields(), File.View4);
    AppendRows(Text, "Boat", BoatFields(), File.Boat);
    if (Filter == SectionFilter::Any) {
        AppendRows(Text, "Desc", DescFields(), File.Desc);
        AppendSampleRows(Text, "Data", File, File.Data);
        if (gExpSTD != 0) AppendSampleRows(Text, "STD", File, File.STD);
    }
    AppendSampleRows(Text, "Models", File, File.Models);
    AppendRows(Text, "VidDots", DotFields(), gDots);
    AppendRows(Text, "VidSegs", SegFields(), gSegs);
    AppendRows(Text, "VideoID", VideoIDFields(), gVideoID);
    return Text += "EOF\r\n";
}

bool WriteDataFile(const std::string& Path, const DataFile& File, SectionFilter Filter)
{
    WholeFile New(Path);
    New.Append(EncodeText(DataFileText(File, Filter), File.Encoding));
    return New.Commit() || TellFailure("Can't write file: ", Path, New.Failure());
}

bool BackupFile(const std::string& Path)
{
    std::filesystem::path Original(Path);
    if (!Original.has_parent_path()) Original = gAppDir + Path;
    std::error_code Error;
    if (!std::filesystem::exists(Original, Error)) return true;
    const auto Bytes = ReadWhole(Original.string());
    if (!Bytes) return TellFailure("Can't open file: ", Path, "");
    WholeFile Copy(std::filesystem::path(Original).replace_extension(".bak").string());
    Copy.Append(*Bytes);
    return Copy.Commit() || TellFailure("Can't write the backup of file: ", Path, Copy.Failure());
}
