// The session's fields between file and form, and Apply.
#include "records/mSession.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "files/mNewSession.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "records/mSessName.h"
#include "records/mTemplates.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace {
constexpr LetterChoice Sexes[] = {{"Male", "M"}, {"Female", "W"}};
constexpr LetterChoice Categories[] = {{"HeavyWeight", "H"}, {"LightWeight", "L"}, {"Adaptive", "A"}};
constexpr LetterChoice BoatTypes[] = {{"1x", "1x"}, {"2-", "2-"}, {"2x", "2x"}, {"4-", "4-"},
                                      {"4x", "4x"}, {"8+", "8+"}, {"2+", "2+"}, {"4+", "4+"}};
constexpr LetterChoice AgeGroups[] = {{"Senior A", "A"}, {"Senior B", "B"}, {"Junior", "J"}, {"Masters", "M"}};

const SessionPar Pars[SessionParCnt] = {
    {"Air Temperature", &DataFile::AirTemp, "0.0"},
    {"Water Temperature", &DataFile::WaterTemp, "0.0"},
    {"Test Distance (m)", &DataFile::TestDist, "0"},
    {"Boat Make", &DataFile::BoatMake, ""},
    {"Boat Length (m)", &DataFile::BoatLength, "0.000"},
    {"Boat Mass (kg)", &DataFile::BoatMass, "0"},
    {"Boat Height from water (mm)", &DataFile::BoatHeight, "0.0"},
};

// The letters of a form beside those of a session.
struct LetterField
{
    const char* Name;
    std::string SessionForm::*InForm;
    std::string DataFile::*InFile;
};
constexpr LetterField Letters[] = {
    {"gender", &SessionForm::Sex, &DataFile::Sex},
    {"category", &SessionForm::Category, &DataFile::Category},
    {"boat type", &SessionForm::BoatType, &DataFile::BoatType},
    {"age group", &SessionForm::AgeGroup, &DataFile::AgeGroup},
};

struct TextField
{
    std::string SessionForm::*InForm;
    std::string DataFile::*InFile;
};
constexpr TextField Texts[] = {
    {&SessionForm::SessNum, &DataFile::SessNum},
    {&SessionForm::Place, &DataFile::Place},
    {&SessionForm::Coach, &DataFile::Coach},
    {&SessionForm::Comment, &DataFile::Comment},
};

std::string ParText(const SessionPar& Par, const DataFile& File)
{
    if (const auto* Text = std::get_if<std::string DataFile::*>(&Par.Member)) return File.**Text;
    return FormatNum(static_cast<double>(File.*std::get<float DataFile::*>(Par.Member)), Par.Pattern);
}

void StorePar(const SessionPar& Par, const std::string& Typed, DataFile& File)
{
    if (Typed == ParText(Par, File)) return;
    if (const auto* Text = std::get_if<std::string DataFile::*>(&Par.Member))
        File.** Text = TrimTyped(Typed);
    else if (const auto Number = TypedNumber(Typed))
        File.*std::get<float DataFile::*>(Par.Member) = static_cast<float>(*Number);
}

bool IsNumber(const SessionPar& Par)
{
    return std::holds_alternative<float DataFile::*>(Par.Member);
}

bool MakesFile(eSessionMode Mode)
{
    return Mode != SessionChange;
}

// A number that a template leaves at 0 is not proposed.
std::string Proposal(const SessionPar& Par, const SessionTemplate* Template)
{
    if (!Template || !IsNumber(Par)) return {};
    const std::string Text = ParText(Par, Template->Setup);
    return TypedNumber(Text) == 0.0 ? "" : Text;
}

// A reminder of the groups without a choice, which leave their field empty.
std::string NotChosen(const SessionForm& Form)
{
    std::string Names;
    for (const LetterField& Each : Letters)
        if ((Form.*Each.InForm).empty() && (gFile.*Each.InFile).empty())
            Names.append(Names.empty() ? "" : ", ").append(Each.Name);
    return Names.empty() ? "" : " Targets are found by what is not chosen: " + Names + ".";
}

bool StartBlank(const std::string& Path, DataFile New, const std::string& RefFolder)
{
    auto Videos = std::exchange(gVideoID, {}); // these three belong to the former session's samples
    auto Coords = std::exchange(gVidCoords, {});
    auto Angles = std::exchange(gVidAngles, {});
    if (StartSession(Path, std::move(New), RefFolder)) return true;
    gVideoID = std::move(Videos);
    gVidCoords = std::move(Coords);
    gVidAngles = std::move(Angles);
    return false;
}

// Numbers of the former session that would show as 0 go with the others.
void ClearNumbers(DataFile& File)
{
    for (const SessionPar& Par : Pars)
        if (IsNumber(Par)) File.*std::get<float DataFile::*>(Par.Member) = 0;
}

void TakeSetup(const SessionTemplate* Template, DataFile& File)
{
    ClearNumbers(File);
    File.TimeStep = SafeDiv(1, gDataFreq);
    if (Template) return ApplyTemplate(*Template, File);
    File.Calibr.Clear();
    File.ChanCnt = 0;
    File.Crew.Clear();
    File.CrewCnt = 1;
}

bool ChangeSession(const SessionForm& Form)
{
    DataFile Former = gFile;
    SaveSession(Form, gFile);
    if (WriteSession()) {
        UpdateStatus("Saved: " + gCurFile);
        return true;
    }
    gFile = std::move(Former);
    return false;
}
} // namespace

std::span<const LetterChoice> SexChoices()
{
    return Sexes;
}

std::span<const LetterChoice> CategoryChoices()
{
    return Categories;
}

std::span<const LetterChoice> BoatTypeChoices()
{
    return BoatTypes;
}

std::span<const LetterChoice> AgeGroupChoices()
{
    return AgeGroups;
}

std::span<const SessionPar, SessionParCnt> SessionPars()
{
    return Pars;
}

const char* SessionCaption(eSessionMode Mode)
{
    if (Mode == SessionNew) return "A NEW blank data file will be created";
    return Mode == SessionSaveAs ? "Current setup will be SAVED AS a new data file (samples discarded)"
                                 : "Changing the current session data (samples preserved)";
}

SessionForm LoadSession(eSessionMode Mode)
{
    SessionForm Form;
    for (const LetterField& Each : Letters)
        Form.*Each.InForm = gFile.*Each.InFile;
    Form.Date = LongDate(Today());
    Form.Folder = gBaseFolder;
    Form.SessNum = "1";
    if (Mode == SessionNew) return Form;
    for (const TextField& Each : Texts)
        Form.*Each.InForm = gFile.*Each.InFile;
    for (std::size_t i = 0; i < SessionParCnt; ++i)
        Form.Pars[i] = ParText(Pars[i], gFile);
    return Form;
}

void ProposeTemplate(SessionForm& Form, const SessionTemplate* Before, const SessionTemplate* Chosen)
{
    for (std::size_t i = 0; i < SessionParCnt; ++i)
        if (Form.Pars[i] == Proposal(Pars[i], Before)) Form.Pars[i] = Proposal(Pars[i], Chosen);
    if (Chosen && !Chosen->Setup.BoatType.empty()) Form.BoatType = Chosen->Setup.BoatType;
}

std::string FormTitle(const SessionForm& Form, const DataFile& File)
{
    std::string Crew;
    for (const LetterField& Each : {Letters[0], Letters[1], Letters[2]})
        Crew += (Form.*Each.InForm).empty() ? File.*Each.InFile : Form.*Each.InForm;
    return SessionTitle(ParseDate(Form.Date).value_or(0), TrimTyped(Form.SessNum), Crew);
}

std::string FormPath(const SessionForm& Form, eSessionMode Mode)
{
    return MakesFile(Mode) ? SessionPath(TrimTyped(Form.Folder), FormTitle(Form, gFile)) : gCurFile;
}

std::vector<FormFault> CheckSession(const SessionForm& Form, eSessionMode Mode)
{
    std::vector<FormFault> Faults;
    AddFault(Faults, "txtDate", WhyNoDate(Form.Date));
    if (MakesFile(Mode)) {
        if (ParseDate(Form.Date) == 0.0) AddFault(Faults, "txtDate", "the identifier begins with the date");
        AddFault(Faults, "txtSessNum", WhyNoTitle(FormTitle(Form, gFile)));
    }
    for (std::size_t i = 0; i < SessionParCnt; ++i)
        if (IsNumber(Pars[i]))
            AddFault(Faults, "txtPars_" + FormatNum(static_cast<double>(i), "0"), WhyNoNumber(Form.Pars[i]));
    if (MakesFile(Mode)) AddFault(Faults, "DirLtxt", WhyNoFolder(Form.Folder));
    return Faults;
}

std::string SessionPlan(const SessionForm& Form, eSessionMode Mode)
{
    if (MakesFile(Mode)) return NewFilePlan(FormPath(Form, Mode)) + NotChosen(Form);
    const bool IsMoved = ParseDate(Form.Date) != gFile.SessDate && gFile.SessDate != 0;
    return IsMoved ? "The session's date, " + LongDate(gFile.SessDate) + ", becomes the one above." : "";
}

void SaveSession(const SessionForm& Form, DataFile& File)
{
    File.SessID = FormTitle(Form, File);
    File.SessDate = ParseDate(Form.Date).value_or(File.SessDate);
    for (const TextField& Each : Texts)
        if (Form.*Each.InForm != File.*Each.InFile) File.*Each.InFile = TrimTyped(Form.*Each.InForm);
    for (const LetterField& Each : Letters)
        if (!(Form.*Each.InForm).empty()) File.*Each.InFile = Form.*Each.InForm;
    for (std::size_t i = 0; i < SessionParCnt; ++i)
        StorePar(Pars[i], Form.Pars[i], File);
}

bool ApplySession(const SessionForm& Form, eSessionMode Mode, const SessionTemplate* Template,
                  const std::function<bool()>& MayReplace)
{
    if (const auto Faults = CheckSession(Form, Mode); !Faults.empty()) {
        MsgBox("The session cannot be stored: " + Faults[0].Why + ".", TitleWarning);
        return false;
    }
    if (!MakesFile(Mode)) return ChangeSession(Form);
    const std::string Path = FormPath(Form, Mode);
    if (!MayRewriteSession(Path) || (MayReplace && !MayReplace())) return false;
    DataFile New = gFile;
    if (Mode == SessionNew) TakeSetup(Template, New);
    SaveSession(Form, New);
    const std::string RefFolder =
        Template ? std::filesystem::path(Template->Path).parent_path().string() + "/" : gCurDir;
    if (Mode == SessionNew ? !StartBlank(Path, std::move(New), RefFolder)
                           : !StartSession(Path, std::move(New), gCurDir))
        return false;
    gBaseFolder = TrimTyped(Form.Folder);
    UpdateStatus("Made: " + gCurFile);
    return true;
}

std::string NewFilePlan(const std::string& Path)
{
    std::error_code Error;
    if (!std::filesystem::exists(Path, Error))
        return gCurFile.empty() ? "A new file is made."
                                : "A new file is made; the open session stays on the disk as it was saved last.";
    return Path == gCurFile
               ? "This is the file of the open session: you are asked before it is replaced, which discards "
                 "its samples."
               : "This session exists already: you are asked before it is replaced.";
}

bool MayRewriteSession(const std::string& Path)
{
    std::error_code Error;
    return !std::filesystem::exists(Path, Error) ||
           AskYesNo("The current session already exists! Do you want to rewrite data?", TitleWarning);
}
