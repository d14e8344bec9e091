// Reading and writing of the session data file: its sections, their order, and the backup.
#include "files/mTextIO.h"

#include "base/mCodePage.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mNotice.h"
#include "core/mSettings.h"
#include "files/mBrokenOff.h"
#include "files/mPoints.h"
#include "files/mTextMain.h"
#include "files/mTextSamples.h"
#include "files/mTextVideo.h"
#include "files/mUnread.h"
#include "platform/mHost.h"
#include "processing/mRefTable.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>

namespace {
template <class Row>
void NameSession(RowArray<Row>& Rows, const std::string& SessID)
{
    for (Row& Each : Rows)
        Each.SessID = SessID;
}

void ReadCrew(LineReader& Lines, LoadedSession& Into)
{
    ReadCrewRows(Lines, Into.File.Crew);
    NameSession(Into.File.Crew, Into.SessID);
}

// The oldest files name the session ahead of each channel.
void ReadCalibr(LineReader& Lines, LoadedSession& Into)
{
    DataFile& File = Into.File;
    int16_t Chan = 0;
    ReadRows(Lines, File.Calibr, [&](CalibrRow& Row, const LineFields& Cells) {
        const std::size_t Skipped = File.Model == ModelOldest && !Cells.Closed.empty() ? 1 : 0;
        SetFields<CalibrRow>(Row, CalibrFields(), std::span(Cells.Closed).subspan(Skipped));
        Row.Chan = ++Chan;
    });
    NameSession(File.Calibr, Into.SessID);
    File.ChanCnt = Chan;
    if (Into.IsOpen) Into.Tables = ReadRefTables(File.Calibr, Into.Folder);
}

void ReadBoat(LineReader& Lines, LoadedSession& Into)
{
    ReadClosedRows(Lines, BoatFields(), Into.File.Boat);
    NameSession(Into.File.Boat, Into.SessID);
}

void ReadDesc(LineReader& Lines, LoadedSession& Into)
{
    ReadSplitRows(Lines, DescFields(), Into.File.Desc);
    NameSession(Into.File.Desc, Into.SessID);
}

template <auto Table>
void ReadView(LineReader& Lines, LoadedSession& Into)
{
    ReadSplitRows(Lines, ViewFields(), Into.File.*Table);
}

void ReadView1(LineReader& Lines, LoadedSession& Into)
{
    ReadView<&DataFile::View1>(Lines, Into);
    Into.File.View1Cnt = static_cast<int16_t>(Into.File.View1.UBound());
}

template <auto Table>
void ReadSamples(LineReader& Lines, LoadedSession& Into)
{
    Into.Dropped += ReadSampleRows(Lines, Into.File, Into.SessID, Into.File.*Table);
}

enum class Kind
{
    OfFile,
    OfSamples, // left out by the filter Non
    OfVideo    // tables outside the record: a file that is only looked into leaves them alone
};

template <auto Table>
int RowsIn(const LoadedSession& Read)
{
    return (Read.File.*Table).UBound();
}

template <auto Table>
int RowsBeside(const LoadedSession& Read)
{
    return Read.IsOpen ? (Read.*Table).UBound() : 0;
}

struct Section
{
    std::string_view Keyword;
    Kind Belongs;
    void (*Read)(LineReader& Lines, LoadedSession& Into);
    int (*Held)(const LoadedSession& Read) = nullptr; // rows that stay when a file does not name it; null: none
};

constexpr Section Sections[] = {
    {"Main", Kind::OfFile, ReadMain, [](const LoadedSession& Read) { return Read.File.KeyChanID.empty() ? 0 : 1; }},
    {"Sess", Kind::OfFile, ReadSess, [](const LoadedSession& Read) { return Read.File.SessID.empty() ? 0 : 1; }},
    {"Crew", Kind::OfFile, ReadCrew, RowsIn<&DataFile::Crew>},
    {"Calibr", Kind::OfFile, ReadCalibr, RowsIn<&DataFile::Calibr>},
    {"View1", Kind::OfFile, ReadView1, RowsIn<&DataFile::View1>},
    {"View3", Kind::OfFile, ReadView<&DataFile::View3>, RowsIn<&DataFile::View3>},
    {"View4", Kind::OfFile, ReadView<&DataFile::View4>, RowsIn<&DataFile::View4>},
    {"Boat", Kind::OfFile, ReadBoat, RowsIn<&DataFile::Boat>},
    {"Desc", Kind::OfSamples, ReadDesc},
    {"Data", Kind::OfSamples, ReadSamples<&DataFile::Data>},
    {"Calc", Kind::OfSamples, ReadSamples<&DataFile::Data>},
    {"STD", Kind::OfSamples, ReadSamples<&DataFile::STD>, RowsIn<&DataFile::STD>},
    {"Models", Kind::OfSamples, ReadSamples<&DataFile::Models>, RowsIn<&DataFile::Models>},
    {"VidDots", Kind::OfVideo,
     [](LineReader& Lines, LoadedSession& Into) { ReadSplitRows(Lines, DotFields(), Into.Dots); },
     RowsBeside<&LoadedSession::Dots>},
    {"VidSegs", Kind::OfVideo,
     [](LineReader& Lines, LoadedSession& Into) { ReadSplitRows(Lines, SegFields(), Into.Segs); },
     RowsBeside<&LoadedSession::Segs>},
    {"VideoID", Kind::OfVideo,
     [](LineReader& Lines, LoadedSession& Into) { ReadSplitRows(Lines, VideoIDFields(), Into.VideoID); },
     RowsBeside<&LoadedSession::VideoID>},
    {"VidCoords", Kind::OfVideo, [](LineReader& Lines, LoadedSession& Into) { ReadVideoPoints(Lines, Into.Coords); },
     RowsBeside<&LoadedSession::Coords>},
    {"VidAngles", Kind::OfVideo, [](LineReader& Lines, LoadedSession& Into) { ReadVideoPoints(Lines, Into.Angles); },
     RowsBeside<&LoadedSession::Angles>},
};

using SectionSet = std::set<const Section*>;

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
SectionSet ReadSections(std::string_view Text, LoadedSession& Into, SectionFilter Filter)
{
    SectionSet Named;
    LineReader Lines(Text);
    for (std::string_view Line; Lines.Take(Line);) {
        const Section* Found = FindSection(Line);
        if (!Found || (Found->Belongs == Kind::OfSamples && Filter == SectionFilter::Non)) continue;
        if (Found->Belongs != Kind::OfVideo || Into.IsOpen) Found->Read(Lines, Into);
        Named.insert(Found);
    }
    return Named;
}

// Reads the bytes of a file. Gives the sections that it has; nothing when there is none at all.
std::optional<SectionSet> ReadText(std::string Bytes, LoadedSession& Into, SectionFilter Filter)
{
    const std::string Text = DecodeText(std::move(Bytes), Into.File.Encoding, TextPage());
    if (!IsSession(Text)) return {};
    Into.File.Model = ModelOldest;
    Into.File.SampleCnt = 0;
    Into.File.Desc.Clear();
    Into.File.Data.Clear();
    Into.BrokenOff = WhereBrokenOff(Text, [](std::string_view Line) { return FindSection(Line) != nullptr; });
    return ReadSections(Text, Into, Filter);
}

// Reports what of the file was not read, if anything. False when that is a failure.
bool ReportMissing(const std::string& Path, const LoadedSession& Read)
{
    std::string Words;
    if (!Read.BrokenOff.empty())
        Words =
            " is not whole: " + Read.BrokenOff +
            ". What stood behind that is missing; the copy with the ending .bak may still have it, until the session "
            "is saved.";
    if (Read.Dropped > 0)
        Words += (Words.empty() ? ": " : " ") + FormatNum(Read.Dropped, "0") +
                 (Read.Dropped == 1 ? " line" : " lines") +
                 " of values left out: fewer than their sample has points, or no such sample in the section Desc.";
    if (Words.empty()) return true;
    MsgBox(Path + Words, TitleWarning);
    return !gStrictReading;
}

// What a file that names these sections left as it was, as "Sess, STD (26 rows)".
std::string KeptSections(const LoadedSession& Read, const SectionSet& Named)
{
    // The oldest files make these two by their session.
    const bool IsMade = Read.File.Model == ModelOldest && Named.contains(FindSection("Sess"));
    std::string Text;
    for (const Section& Each : Sections) {
        const bool IsHeld = Each.Held && !Named.contains(&Each);
        const int Rows = IsHeld ? Each.Held(Read) : 0;
        if (Rows < 1 || (IsMade && (Each.Keyword == "Crew" || Each.Keyword == "Boat"))) continue;
        Text.append(Text.empty() ? "" : ", ").append(Each.Keyword);
        if (Each.Keyword != "Main" && Each.Keyword != "Sess")
            Text += " (" + FormatNum(Rows, "0") + (Rows == 1 ? " row)" : " rows)");
    }
    return Text;
}

std::string TitleOf(const std::string& Path)
{
    return std::filesystem::path(Path).stem().string();
}

// With the separator behind it, as gCurDir.
std::string FolderOf(const std::string& Path)
{
    const std::filesystem::path Name(Path);
    return Name.has_parent_path() ? (Name.parent_path() / "").string() : "";
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

void AppendSession(WholeFile& New, const DataFile& File, SectionFilter Filter)
{
    New.Append(EncodeText(DataFileText(File, Filter), File.Encoding, TextPage()));
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
    LoadedSession Read = BeginLoading(File, TitleOf(Path), FolderOf(Path));
    const auto Named = ReadText(std::move(*Bytes), Read, Filter);
    if (!Named) return FileFailed(NoSession, Path, TitleWarning);
    if (!ReportMissing(Path, Read)) return false;
    if (Kept) *Kept = KeptSections(Read, *Named);
    Publish(std::move(Read), File);
    gSessID = TitleOf(Path);
    return true;
}

bool ParseDataFile(std::string Bytes, const std::string& SessID, DataFile& File, SectionFilter Filter)
{
    LoadedSession Read = BeginLoading(File, SessID, gCurDir);
    if (!ReadText(std::move(Bytes), Read, Filter)) return false;
    Publish(std::move(Read), File);
    return true;
}

bool ReadOtherFile(const std::string& Path, DataFile& File, std::set<std::string>& Found)
{
    auto Bytes = ReadWhole(Path);
    if (!Bytes) return FileFailed(CantOpen, Path, TitleWarning);
    LoadedSession Read = BeginLoading(File, TitleOf(Path), FolderOf(Path));
    const auto Named = ReadText(std::move(*Bytes), Read, SectionFilter::Any);
    if (!Named) return FileFailed(NoSession, Path, TitleWarning);
    if (!ReportMissing(Path, Read)) return false;
    for (const Section* Each : *Named)
        Found.emplace(Each->Keyword);
    Publish(std::move(Read), File);
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
    if (&File != &gFile) {
        WholeFile New(Path);
        AppendSession(New, File, Filter);
        return New.Commit() || FileFailed(CantWrite, Path, TitleWarning, New.Failure());
    }
    if (!WriteWithPoints(Path, File, Filter)) return false;
    if (Path == gCurFile && Filter == SectionFilter::Any) Notify(eNotice::SessionSaved);
    return true;
}

bool WriteWithPoints(const std::string& Path, const DataFile& File, SectionFilter Filter)
{
    WholeFile New(Path);
    AppendSession(New, File, Filter);
    return CommitWithPoints(Path, New);
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
