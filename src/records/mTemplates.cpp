// Finding, describing and applying templates.
#include "records/mTemplates.h"

#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "files/mNewSession.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "records/mSessName.h"

#include <algorithm>
#include <filesystem>
#include <tuple>
#include <utility>

namespace fs = std::filesystem;

namespace {
void AddTemplate(TemplateList& List, const fs::path& Path)
{
    SessionTemplate New{Path.stem().string(), Path.string(), {}};
    auto Bytes = ReadWhole(New.Path);
    if (!Bytes || !ParseDataFile(std::move(*Bytes), "", New.Setup, SectionFilter::Non))
        return List.Unreadable.push_back(New.Path);
    std::erase_if(List.Templates, [&](const SessionTemplate& Each) { return Each.Name == New.Name; });
    List.Templates.push_back(std::move(New));
}

// Seats stay, rowers do not.
void DropRowers(DataFile& File)
{
    for (CrewRow& Row : File.Crew) {
        CrewRow Seat;
        Seat.Seat = Row.Seat;
        Seat.Side = Row.Side;
        Row = Seat;
    }
}

// What a template holds of a session.
DataFile SetupOf(const DataFile& File)
{
    DataFile Setup;
    ApplyTemplate({"", "", File}, Setup);
    DropRowers(Setup);
    Setup.TimeStep = File.TimeStep;
    Setup.SampleCnt = 1;
    Setup.BoatType = File.BoatType;
    Setup.BoatMake = File.BoatMake;
    Setup.BoatLength = File.BoatLength;
    Setup.BoatMass = File.BoatMass;
    Setup.BoatHeight = File.BoatHeight;
    Setup.Comment = File.Comment;
    Setup.Encoding = File.Encoding;
    return Setup;
}

std::string Counted(int Count, const std::string& Noun)
{
    return FormatNum(Count, "0") + " " + Noun + (Count == 1 ? "" : "s");
}
} // namespace

TemplateList FindTemplates(const std::vector<std::string>& Folders)
{
    TemplateList List;
    for (const std::string& Folder : Folders) {
        std::error_code Error;
        for (fs::directory_iterator Each(Folder, Error), End; !Error && Each != End; Each.increment(Error))
            if (Each->path().extension() == ".txt") AddTemplate(List, Each->path());
    }
    const auto Order = [](const SessionTemplate& Each) { return std::tuple(Each.Setup.Crew.UBound(), Each.Name); };
    std::sort(List.Templates.begin(), List.Templates.end(),
              [&](const SessionTemplate& A, const SessionTemplate& B) { return Order(A) < Order(B); });
    return List;
}

std::string TemplateText(const SessionTemplate& Template)
{
    const DataFile& Setup = Template.Setup;
    std::string Text = Setup.Comment.empty() ? "" : Setup.Comment + "\n";
    Text += Counted(Setup.Calibr.UBound(), "channel") + ", " + Counted(Setup.Crew.UBound(), "rower") + ", " +
            Counted(Setup.Boat.UBound(), "oar") + "; views: " + FormatNum(Setup.View1.UBound(), "0") + " live, " +
            FormatNum(Setup.View3.UBound(), "0") + " in the report, " + FormatNum(Setup.View4.UBound(), "0") +
            " in the play view";
    return Text;
}

std::string TemplatePath(const std::string& Folder, const std::string& Name)
{
    return (fs::path(Folder) / (Name + ".txt")).string();
}

bool KeepTemplate(const std::string& Folder, const std::string& Name)
{
    if (const std::string Why = Name.empty() ? "it has no name" : WhyNoTitle(Name); !Why.empty()) {
        MsgBox("The template cannot be kept: " + Why + ".", TitleWarning);
        return false;
    }
    const std::string Path = TemplatePath(Folder, Name);
    std::error_code Error;
    if (fs::exists(Path, Error) && !AskYesNo("There is a template " + Name + " already. Replace it?", TitleWarning))
        return false;
    fs::create_directories(Folder, Error);
    return CarryRefTables(gFile, gCurDir, Folder) && WriteDataFile(Path, SetupOf(gFile), SectionFilter::Non);
}

void ApplyTemplate(const SessionTemplate& Template, DataFile& File)
{
    const DataFile& Setup = Template.Setup;
    File.Model = Setup.Model;
    File.SlaveCnt = Setup.SlaveCnt;
    File.SlaveChans = Setup.SlaveChans;
    File.Signed = Setup.Signed;
    File.KeyMode = Setup.KeyMode;
    File.KeyChanID = Setup.KeyChanID;
    File.KeyThres = Setup.KeyThres;
    File.Calibr = Setup.Calibr;
    File.ChanCnt = Setup.ChanCnt;
    File.Crew = Setup.Crew;
    File.CrewCnt = static_cast<int16_t>(Setup.Crew.UBound() + 1);
    File.Boat = Setup.Boat;
    File.View1 = Setup.View1;
    File.View1Cnt = Setup.View1Cnt;
    File.View3 = Setup.View3;
    File.View4 = Setup.View4;
}
