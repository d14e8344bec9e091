// Reading and writing of the session data file: its sections, their order, and the backup.
#include "files/mTextIO.h"

#include "base/mCodePage.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mNotice.h"
#include "core/mSettings.h"
#include "files/mTextMain.h"
#include "files/mTextSamples.h"
#include "files/mTextVideo.h"
#include "platform/mHost.h"
#include "processing/mRefTable.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>

namespace {
template <class Row>
void NameSession(RowArray<Row>& Rows)
{
    for (Row& Each : Rows)
        Each.SessID = gSessID;
}

void ReadCrew(LineReader& Lines, RowArray<CrewRow>& Rows)
{
    ReadCrewRows(Lines, Rows);
    NameSession(Rows);
}

// The oldest files name the session ahead of each channel.
void ReadCalibr(LineReader& Lines, DataFile& File)
{
    int16_t Chan = 0;
    ReadRows(Lines, File.Calibr, [&](CalibrRow& Row, const LineFields& Cells) {
        const std::size_t Skipped = File.Model == ModelOldest && !Cells.Closed.empty() ? 1 : 0;
        SetFields<CalibrRow>(Row, CalibrFields(), std::span(Cells.Closed).subspan(Skipped));
        Row.Chan = ++Chan;
    });
    NameSession(File.Calibr);
    File.ChanCnt = Chan;
    if (IsOpenFile(File)) LoadRefTables();
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
    File.View1Cnt = static_cast<int16_t>(File.View1.UBound());
}

enum class Kind
{
    OfFile,
    OfSamples, // left out by the filter Non
    OfVideo    // tables outside the record: a file that is only looked into leaves them alone
};

template <auto Table>
int RowsIn(const DataFile& File)
{
    return (File.*Table).UBound();
}

template <auto& Table>
int RowsBeside(const DataFile& File)
{
    return IsOpenFile(File) ? Table.UBound() : 0;
}

struct Section
{
    std::string_view Keyword;
    Kind Belongs;
    void (*Read)(LineReader& Lines, DataFile& File);
    int (*Held)(const DataFile& File) = nullptr; // rows that stay when a file does not name the section; null: none
};

constexpr Section Sections[] = {
    {"Main", Kind::OfFile, ReadMain, [](const DataFile& File) { return File.KeyChanID.empty() ? 0 : 1; }},
    {"Sess", Kind::OfFile, ReadSess, [](const DataFile& File) { return File.SessID.empty() ? 0 : 1; }},
    {"Crew", Kind::OfFile, [](LineReader& Lines, DataFile& File) { ReadCrew(Lines, File.Crew); },
     RowsIn<&DataFile::Crew>},
    {"Calibr", Kind::OfFile, ReadCalibr, RowsIn<&DataFile::Calibr>},
    {"View1", Kind::OfFile, ReadView1, RowsIn<&DataFile::View1>},
    {"View3", Kind::OfFile, [](LineReader& Lines, DataFile& File) { ReadSplitRows(Lines, ViewFields(), File.View3); },
     RowsIn<&DataFile::View3>},
    {"View4", Kind::OfFile, [](LineReader& Lines, DataFile& File) { ReadSplitRows(Lines, ViewFields(), File.View4); },
     RowsIn<&DataFile::View4>},
    {"Boat", Kind::OfFile, [](LineReader& Lines, DataFile& File) { ReadBoat(Lines, File.Boat); },
     RowsIn<&DataFile::Boat>},
    {"Desc", Kind::OfSamples, [](LineReader& Lines, DataFile& File) { ReadDesc(Lines, File.Desc); }},
    {"Data", Kind::OfSamples, [](LineReader& Lines, DataFile& File) { ReadSampleRows(Lines, File, File.Data); }},
    {"Calc", Kind::OfSamples, [](LineReader& Lines, DataFile& File) { ReadSampleRows(Lines, File, File.Data); }},
    {"STD", Kind::OfSamples, [](LineReader& Lines, DataFile& File) { ReadSampleRows(Lines, File, File.STD); },
     RowsIn<&DataFile::STD>},
    {"Models", Kind::OfSamples, [](LineReader& Lines, DataFile& File) { ReadSampleRows(Lines, File, File.Models); },
     RowsIn<&DataFile::Models>},
    {"VidDots", Kind::OfVideo, [](LineReader& Lines, DataFile&) { ReadSplitRows(Lines, DotFields(), gDots); },
     RowsBeside<gDots>},
    {"VidSegs", Kind::OfVideo, [](LineReader& Lines, DataFile&) { ReadSplitRows(Lines, SegFields(), gSegs); },
     RowsBeside<gSegs>},
    {"VideoID", Kind::OfVideo, [](LineReader& Lines, DataFile&) { ReadSplitRows(Lines, VideoIDFields(), gVideoID); },
     RowsBeside<gVideoID>},
    {"VidCoords", Kind::OfVideo, [](LineReader& Lines, DataFile&) { ReadVideoPoints(Lines, gVidCoords); },
     RowsBeside<gVidCoords>},
    {"VidAngles", Kind::OfVideo, [](LineReader& Lines, DataFile&) { ReadVideoPoints(Lines, gVidAngles); },
     RowsBeside<gVidAngles>},
};

constexpr std::string_view LastLine = "EOF";
constexpr const char* NoSession = "This is no session data file: ";

const Section* FindSection(std::string_view Line)
{
    const std::string_view Keyword = Line.substr(0, Line.find('\t'));
    const auto* Found = std::find_if(std::begin(Sections), std::end(Sections),
                                     [&](const Section& Each) { return Each.Keyword == Keyword; });
    return Found == std::end(Sections) ? nullptr : Found;
}

bool IsSession(std::string_view Text)
{
    LineReader Lines(Text);
    for (std::string_view Line; Lines.Take(Line);)
        if (Line == LastLine || FindSection(Line)) return true;
    return false;
}

// Gives the sections that were read.
std::set<const Section*> ReadSections(std::string_view Text, DataFile& File, SectionFilter Filter)
{
    std::set<const Section*> Named;
    LineReader Lines(Text);
    for (std::string_view Line; Lines.Take(Line);) {
        const Section* Found = FindSection(Line);
        if (!Found || (Found->Belongs == Kind::OfSamples && Filter == SectionFilter::Non)) continue;
        if (Found->Belongs != Kind::OfVideo || IsOpenFile(File)) Found->Read(Lines, File);
        Named.insert(Found);
    }
    return Named;
}

// Reads the bytes of a file into File. Gives the sections that it has; nothing when there is none at all.
std::optional<std::set<const Section*>> ReadText(std::string Bytes, const std::string& SessID, DataFile& File,
                                                 SectionFilter Filter)
{
    TextEncoding Encoding{};
    const std::string Text = DecodeText(std::move(Bytes), Encoding, TextPage());
    if (!IsSession(Text)) return {};
    File.Encoding = Encoding;
    File.Model = ModelOldest;
    File.SampleCnt = 0;
    File.Desc.Clear();
    File.Data.Clear();
    gSessID = SessID;
    return ReadSections(Text, File, Filter);
}

// What a file that names these sections left as it was, as "Sess, STD (26 rows)".
std::string KeptSections(const DataFile& File, const std::set<const Section*>& Named)
{
    // The oldest files make these two by their session.
    const bool IsMade = File.Model == 0 && Named.contains(FindSection("Sess"));
    std::string Text;
    for (const Section& Each : Sections) {
        const bool IsHeld = Each.Held && !Named.contains(&Each);
        const int Rows = IsHeld ? Each.Held(File) : 0;
        if (Rows < 1 || (IsMade && (Each.Keyword == "Crew" || Each.Keyword == "Boat"))) continue;
        Text.append(Text.empty() ? "" : ", ").append(Each.Keyword);
        if (Each.Keyword != "Main" && Each.Keyword != "Sess")
            Text += " (" + FormatNum(Rows, "0") + (Rows == 1 ? " row)" : " rows)");
    }
    return Text;
}

void AppendCalibr(std::string& Text, const DataFile& File)
{
    Text += "Calibr\r\n";
    for (const CalibrRow& Row : File.Calibr) {
        if (File.Model == ModelOldest) {
            AppendText(Text, {}, File.SessID);
            Text += '\t';
        }
        AppendFields(Text, Row, CalibrFields());
        Text += "\r\n";
    }
    Text += "End\r\n";
}
} // namespace

void ReadCrewRows(LineReader& Lines, RowArray<CrewRow>& Rows)
{
    constexpr std::size_t BeforeWeight = 5;
    ReadRows(Lines, Rows, [](CrewRow& Row, LineFields& Cells) {
        if (Cells.Closed.size() == BeforeWeight) Cells.Closed.push_back(Cells.Open);
        SetFields(Row, CrewFields(), Cells.Closed);
    });
}

bool ReadDataFile(const std::string& Path, DataFile& File, SectionFilter Filter, std::string* Kept)
{
    auto Bytes = ReadWhole(Path);
    if (!Bytes) return FileFailed(CantOpen, Path, TitleWarning);
    return ParseDataFile(std::move(*Bytes), std::filesystem::path(Path).stem().string(), File, Filter, Kept) ||
           FileFailed(NoSession, Path, TitleWarning);
}

bool ParseDataFile(std::string Bytes, const std::string& SessID, DataFile& File, SectionFilter Filter,
                   std::string* Kept)
{
    const auto Named = ReadText(std::move(Bytes), SessID, File, Filter);
    if (Kept && Named) *Kept = KeptSections(File, *Named);
    return Named.has_value();
}

bool ReadOtherFile(const std::string& Path, DataFile& File, std::set<std::string>& Found)
{
    auto Bytes = ReadWhole(Path);
    if (!Bytes) return FileFailed(CantOpen, Path, TitleWarning);
    const std::string Own = gSessID;
    const auto Named =
        ReadText(std::move(*Bytes), std::filesystem::path(Path).stem().string(), File, SectionFilter::Any);
    gSessID = Own;
    if (!Named) return FileFailed(NoSession, Path, TitleWarning);
    for (const Section* Each : *Named)
        Found.emplace(Each->Keyword);
    return true;
}

std::string DataFileText(const DataFile& File, SectionFilter Filter)
{
    std::string Text;
    if (File.Model != ModelOldest) AppendMain(Text, File);
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
    return Text.append(LastLine).append("\r\n");
}

bool WriteDataFile(const std::string& Path, const DataFile& File, SectionFilter Filter)
{
    WholeFile New(Path);
    New.Append(EncodeText(DataFileText(File, Filter), File.Encoding, TextPage()));
    if (!New.Commit()) return FileFailed(CantWrite, Path, TitleWarning, New.Failure());
    if (IsOpenFile(File) && Path == gCurFile && Filter == SectionFilter::Any) Notify(eNotice::SessionSaved);
    return true;
}

bool BackupFile(const std::string& Path)
{
    std::filesystem::path Original(Path);
    if (!Original.has_parent_path()) Original = gAppDir + Path;
    std::error_code Error;
    if (!std::filesystem::exists(Original, Error)) return true;
    const auto Bytes = ReadWhole(Original.string());
    if (!Bytes) return FileFailed(CantOpen, Path, TitleWarning);
    WholeFile Copy(std::filesystem::path(Original).replace_extension(".bak").string());
    Copy.Append(*Bytes);
    return Copy.Commit() || FileFailed("Can't write the backup of file: ", Path, TitleWarning, Copy.Failure());
}

bool WriteSession()
{
    return BackupFile(gCurFile) && WriteDataFile(gCurFile, gFile, SectionFilter::Any);
}
