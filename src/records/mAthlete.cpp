// One athlete between the first crew row and the form, and the session made from it.
#include "records/mAthlete.h"

#include "base/mNumText.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "files/mNewSession.h"
#include "platform/mHost.h"
#include "records/mSessName.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <utility>

namespace fs = std::filesystem;

namespace {
constexpr LetterChoice Genders[] = {{"Male", "M"}, {"Female", "F"}};
constexpr LetterChoice WeightGroups[] = {{"Heavyweight", "H"}, {"Lightweight", "L"}};
constexpr LetterChoice Ages[] = {{"Junior", "J"}, {"Senior A", "A"}, {"Senior B", "B"}};

constexpr const char* Captions[AthleteBoxCnt] = {
    "Date (d/m/y)",       "Session Counter",           "Name",        "Rower ID",   "Club",
    "Birth Date (d/m/y)", "Rowing Start Date (d/m/y)", "Height (cm)", "Weight (kg)"};

// The boxes that show the crew row's texts.
struct TextBox
{
    eAthleteBox Box;
    std::string CrewRow::*Member;
};
constexpr TextBox TextBoxes[] = {
    {AthleteName, &CrewRow::Name}, {AthleteRowerID, &CrewRow::RowerID}, {AthleteClub, &CrewRow::Club}};

struct DateBox
{
    eAthleteBox Box;
    DateDays CrewRow::*Member;
};
constexpr DateBox DateBoxes[] = {{AthleteBirth, &CrewRow::BirthDate}, {AthleteStart, &CrewRow::RowingStartDate}};

struct NumberBox
{
    eAthleteBox Box;
    float CrewRow::*Member;
    const char* Pattern;
    double Scale; // the box shows the field times this
};
constexpr NumberBox NumberBoxes[] = {{AthleteHeight, &CrewRow::Height, "000.0", 100},
                                     {AthleteWeight, &CrewRow::Weight, "00.0", 1}};

// Nobody is so small, in centimetres, or so tall, in metres.
constexpr double Metres = 3;

struct LetterBox
{
    std::string AthleteForm::*InForm;
    std::string CrewRow::*InRow;
    std::string DataFile::*InFile;
};
constexpr LetterBox LetterBoxes[] = {
    {&AthleteForm::Gender, &CrewRow::Sex, nullptr},
    {&AthleteForm::WeightGroup, &CrewRow::WeightGroup, nullptr},
    {&AthleteForm::BoatType, nullptr, &DataFile::BoatType},
    {&AthleteForm::AgeGroup, nullptr, &DataFile::AgeGroup},
};

std::string& Letter(const LetterBox& Each, CrewRow& Row, DataFile& File)
{
    return Each.InRow ? Row.*Each.InRow : File.*Each.InFile;
}

std::string BoxName(eAthleteBox Box)
{
    return "Text1_" + FormatNum(static_cast<double>(Box), "0");
}

std::string NumberText(const NumberBox& Each, const CrewRow& Row)
{
    return FormatNum(static_cast<double>(Row.*Each.Member) * Each.Scale, Each.Pattern);
}

CrewRow& FirstRow(DataFile& File)
{
    if (File.Crew.UBound() < 1) File.Crew.Grow().Seat = 1;
    return File.Crew[1];
}

int32_t Counter(const AthleteForm& Form)
{
    constexpr int32_t Most = std::numeric_limits<int32_t>::max() - 1;
    return RoundWithin(TypedNumber(Form.Text[AthleteCount]).value_or(0), 0, Most);
}

std::string Title(const AthleteForm& Form)
{
    return AthleteTitle(ParseDate(Form.Text[AthleteDate]).value_or(0), Counter(Form),
                        TrimTyped(Form.Text[AthleteRowerID]));
}

// What was not changed stays as it is, since its text may show less.
void StoreRow(const AthleteForm& Form, CrewRow& Row)
{
    for (const TextBox& Each : TextBoxes)
        if (Form.Text[Each.Box] != Row.*Each.Member) Row.*Each.Member = TrimTyped(Form.Text[Each.Box]);
    for (const DateBox& Each : DateBoxes)
        if (Form.Text[Each.Box] != FormatDate(Row.*Each.Member))
            Row.*Each.Member = ParseDate(Form.Text[Each.Box]).value_or(Row.*Each.Member);
    for (const NumberBox& Each : NumberBoxes) {
        const auto Number = TypedNumber(Form.Text[Each.Box]);
        if (!Number || Form.Text[Each.Box] == NumberText(Each, Row)) continue;
        const bool IsInMetres = Each.Box == AthleteHeight && *Number < Metres;
        Row.*Each.Member = static_cast<float>(IsInMetres ? *Number : *Number / Each.Scale);
    }
}

void StoreAthlete(const AthleteForm& Form, DataFile& File)
{
    CrewRow& Row = FirstRow(File);
    StoreRow(Form, Row);
    for (const LetterBox& Each : LetterBoxes)
        if (!(Form.*Each.InForm).empty()) Letter(Each, Row, File) = Form.*Each.InForm;
    File.SessDate = ParseDate(Form.Text[AthleteDate]).value_or(File.SessDate);
}
} // namespace

std::span<const LetterChoice> GenderChoices()
{
    return Genders;
}

std::span<const LetterChoice> WeightGroupChoices()
{
    return WeightGroups;
}

std::span<const LetterChoice> AthleteAgeChoices()
{
    return Ages;
}

std::span<const char* const, AthleteBoxCnt> AthleteCaptions()
{
    return Captions;
}

AthleteForm LoadAthlete()
{
    LoadSetting("gSessCnt");
    DataFile File;
    File.BoatType = gFile.BoatType;
    File.AgeGroup = gFile.AgeGroup;
    if (gFile.Crew.UBound() >= 1) File.Crew.Grow() = gFile.Crew[1];
    CrewRow& Row = FirstRow(File);
    AthleteForm Form;
    Form.Folder = gBaseFolder;
    Form.Text[AthleteDate] = FormatDate(Today());
    Form.Text[AthleteCount] = FormatNum(gSessCnt, "0");
    for (const TextBox& Each : TextBoxes)
        Form.Text[Each.Box] = Row.*Each.Member;
    for (const DateBox& Each : DateBoxes)
        Form.Text[Each.Box] = FormatDate(Row.*Each.Member);
    for (const NumberBox& Each : NumberBoxes)
        Form.Text[Each.Box] = NumberText(Each, Row);
    for (const LetterBox& Each : LetterBoxes)
        Form.*Each.InForm = Letter(Each, Row, File);
    return Form;
}

std::vector<std::string> FoldersIn(const std::string& Folder)
{
    std::vector<std::string> Names;
    std::error_code Error;
    for (fs::directory_iterator Each(Folder, Error), End; !Error && Each != End; Each.increment(Error)) {
        std::error_code Ignored;
        const std::string Name = Each->path().filename().string();
        if (Each->is_directory(Ignored) && !Name.starts_with('.')) Names.push_back(Name);
    }
    std::sort(Names.begin(), Names.end());
    return Names;
}

std::string FolderAbove(const std::string& Folder)
{
    const fs::path Plain = (fs::path(Folder) / "").lexically_normal().parent_path();
    const fs::path Above = Plain.parent_path();
    return Above == Plain ? "" : Above.string();
}

std::string AthletePath(const AthleteForm& Form)
{
    return AthletePath(TrimTyped(Form.Folder), Title(Form));
}

std::string AthletePlan(const AthleteForm& Form)
{
    if (gFile.Calibr.UBound() < 1)
        return "The open session has no channels, and the athlete's will have none: first make a session with File, "
               "New and the template Ergometer.";
    return NewFilePlan(AthletePath(Form));
}

std::vector<FormFault> CheckAthlete(const AthleteForm& Form)
{
    std::vector<FormFault> Faults;
    AddFault(Faults, BoxName(AthleteDate), WhyNoDate(Form.Text[AthleteDate]));
    if (ParseDate(Form.Text[AthleteDate]) == 0.0)
        AddFault(Faults, BoxName(AthleteDate), "the identifier begins with the date");
    const std::string& Count = Form.Text[AthleteCount];
    if (TypedNumber(Count).value_or(-1) != Counter(Form))
        AddFault(Faults, BoxName(AthleteCount), "\"" + Count + "\" is no whole number from 0 on");
    AddFault(Faults, BoxName(AthleteRowerID), WhyNoTitle(Title(Form)));
    for (const DateBox& Each : DateBoxes)
        AddFault(Faults, BoxName(Each.Box), WhyNoDate(Form.Text[Each.Box]));
    for (const NumberBox& Each : NumberBoxes)
        AddFault(Faults, BoxName(Each.Box), WhyNoNumber(Form.Text[Each.Box]));
    AddFault(Faults, "DirLB", WhyNoFolder(Form.Folder));
    return Faults;
}

bool CreateDataFile(const AthleteForm& Form, const std::function<bool()>& MayReplace)
{
    if (const auto Faults = CheckAthlete(Form); !Faults.empty()) {
        MsgBox("The athlete's session cannot be made: " + Faults[0].Why + ".", TitleWarning);
        return false;
    }
    const std::string Path = AthletePath(Form);
    if (!MayRewriteSession(Path) || (MayReplace && !MayReplace())) return false;
    DataFile New = gFile;
    StoreAthlete(Form, New);
    if (!StartSession(Path, std::move(New), gCurDir)) return false;
    gBaseFolder = TrimTyped(Form.Folder);
    gSessCnt = Counter(Form) + 1;
    SaveSetting("gSessCnt");
    UpdateStatus("Made: " + gCurFile);
    return true;
}
