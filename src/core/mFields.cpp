// The column tables, and the two ways between a value and its text.
#include "core/mFields.h"

#include "base/mNumText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {
constexpr FieldFormat Text{FieldForm::Text, 0, 0};
constexpr FieldFormat Trimmed{FieldForm::Trimmed, 0, 0};
constexpr FieldFormat Unquoted{FieldForm::Unquoted, 0, 0};
constexpr FieldFormat Sig6{FieldForm::Sig6, 0, 0};
constexpr FieldFormat Truth{FieldForm::Truth, 0, 0};
constexpr FieldFormat Date{FieldForm::Date, 0, 0};
constexpr FieldFormat Whole{FieldForm::Number, 1, 0};

constexpr FieldFormat Digits(int Least)
{
    return {FieldForm::Number, Least, 0};
}

constexpr FieldFormat Fixed(int Decimals)
{
    return {FieldForm::Number, 1, Decimals};
}

constexpr FieldFormat Sig(int Places)
{
    return {FieldForm::Sig, 1, Places};
}

std::string_view Trim(std::string_view Words)
{
    const auto First = Words.find_first_not_of(' ');
    if (First == std::string_view::npos) return {};
    return Words.substr(First, Words.find_last_not_of(' ') - First + 1);
}

template <class Integer>
void StoreWhole(Integer& Value, std::string_view Words)
{
    const double X = RoundHalfEven(Val(Words));
    if (X >= std::numeric_limits<Integer>::min() && X <= std::numeric_limits<Integer>::max())
        Value = static_cast<Integer>(X);
}
} // namespace

std::span<const Field<DataFile>> MainFields()
{
    static constexpr std::array Table = {
        Field<DataFile>{"Model", &DataFile::Model, Digits(2)},
        Field<DataFile>{"Channels Number", &DataFile::ChanCnt, Digits(2)},
        Field<DataFile>{"Samples Count", &DataFile::SampleCnt, Digits(2)},
        Field<DataFile>{"Slaves Number", &DataFile::SlaveCnt, Whole},
        Field<DataFile>{"Time Step", &DataFile::TimeStep, Fixed(8)},
        Field<DataFile>{"Key Mode", &DataFile::KeyMode, Whole},
        Field<DataFile>{"Key Channel ID", &DataFile::KeyChanID, Text},
        Field<DataFile>{"Threshold Value", &DataFile::KeyThres, Fixed(4)},
        Field<DataFile>{"Slave Channels", &DataFile::SlaveChans, Whole},
        Field<DataFile>{"Signed", &DataFile::Signed, Truth},
    };
    return Table;
}

std::span<const Field<DataFile>> SessHeadFields()
{
    static constexpr std::array Table = {
        Field<DataFile>{"SessID", &DataFile::SessID, Text},
        Field<DataFile>{"Date", &DataFile::SessDate, {FieldForm::Date, 1, 0}}, // preceded by one blank
        Field<DataFile>{"Place", &DataFile::Place, Text},
        Field<DataFile>{"Coach Name", &DataFile::Coach, Text},
        Field<DataFile>{"Sex", &DataFile::Sex, Text},
        Field<DataFile>{"Boat Type", &DataFile::BoatType, Text},
        Field<DataFile>{"Category", &DataFile::Category, Text},
        Field<DataFile>{"Age Group", &DataFile::AgeGroup, Text},
    };
    return Table;
}

std::span<const Field<DataFile>> SessTailFields()
{
    static constexpr std::array Table = {
        Field<DataFile>{"Session Number", &DataFile::SessNum, Text},
        Field<DataFile>{"Air Temperature", &DataFile::AirTemp, Fixed(1)},
        Field<DataFile>{"Water Temperature", &DataFile::WaterTemp, Fixed(1)},
        Field<DataFile>{"Test Distance (m)", &DataFile::TestDist, Fixed(3)},
        Field<DataFile>{"Boat Make", &DataFile::BoatMake, Text},
        Field<DataFile>{"Boat Mass (kg)", &DataFile::BoatMass, Fixed(3)},
        Field<DataFile>{"Boat Height from water (mm)", &DataFile::BoatHeight, Digits(3)},
        Field<DataFile>{"Boat Length (m)", &DataFile::BoatLength, Fixed(2)},
        Field<DataFile>{"Spare 1", &DataFile::SessSpare1, Whole},
        Field<DataFile>{"Spare 2", &DataFile::SessSpare2, Whole},
        Field<DataFile>{"Comment", &DataFile::Comment, Text},
    };
    return Table;
}

std::span<const Field<CrewRow>> CrewFields()
{
    static constexpr std::array Table = {
        Field<CrewRow>{"Seat", &CrewRow::Seat, Whole},
        Field<CrewRow>{"Side", &CrewRow::Side, Whole},
        Field<CrewRow>{"Name", &CrewRow::Name, Text},
        Field<CrewRow>{"Rower ID", &CrewRow::RowerID, Text},
        Field<CrewRow>{"Height", &CrewRow::Height, Fixed(2)},
        Field<CrewRow>{"Weight", &CrewRow::Weight, Fixed(2)},
        Field<CrewRow>{"Coach", &CrewRow::Coach, Text},
        Field<CrewRow>{"Club", &CrewRow::Club, Text},
        Field<CrewRow>{"Sex", &CrewRow::Sex, Text},
        Field<CrewRow>{"Weight Group", &CrewRow::WeightGroup, Text},
        Field<CrewRow>{"Birth Date", &CrewRow::BirthDate, Date},
        Field<CrewRow>{"Rowing Start Date", &CrewRow::RowingStartDate, Date},
        Field<CrewRow>{"Foot", &CrewRow::Foot, Sig6},
        Field<CrewRow>{"Shank", &CrewRow::Shank, Sig6},
        Field<CrewRow>{"Thigh", &CrewRow::Thigh, Sig6},
        Field<CrewRow>{"Trunk", &CrewRow::Trunk, Sig6},
        Field<CrewRow>{"Trunk Flex", &CrewRow::TrunkFlex, Sig6},
        Field<CrewRow>{"Head", &CrewRow::Head, Sig6},
        Field<CrewRow>{"Upper Arm", &CrewRow::UpperArm, Sig6},
        Field<CrewRow>{"Fore Arm", &CrewRow::ForeArm, Sig6},
        Field<CrewRow>{"Wrist", &CrewRow::Wrist, Sig6},
        Field<CrewRow>{"Shoulders Width", &CrewRow::ShouldersWidth, Sig6},
        Field<CrewRow>{"Ankle Flexion", &CrewRow::AnkleFlexion, Whole},
        Field<CrewRow>{"Ankle Extension", &CrewRow::AnkleExtension, Whole},
        Field<CrewRow>{"Hips to seat", &CrewRow::HipsToSeat, Sig6},
    };
    return Table;
}

std::span<const Field<CalibrRow>> CalibrFields()
{
    static constexpr std::array Table = {
        Field<CalibrRow>{"ParamID", &CalibrRow::ParamID, Trimmed},
        Field<CalibrRow>{"Seat", &CalibrRow::Seat, Whole},
        Field<CalibrRow>{"Side", &CalibrRow::Side, Whole},
        Field<CalibrRow>{"Mode", &CalibrRow::Mode, Whole},
        Field<CalibrRow>{"Lever", &CalibrRow::Lever, Fixed(2)},
        Field<CalibrRow>{"Q0", &CalibrRow::Q0, Sig(6)},
        Field<CalibrRow>{"Q1", &CalibrRow::Q1, Sig(9)},
        Field<CalibrRow>{"Q2", &CalibrRow::Q2, Sig(6)},
        Field<CalibrRow>{"Min", &CalibrRow::Min, Fixed(2)},
        Field<CalibrRow>{"Max", &CalibrRow::Max, Fixed(2)},
        Field<CalibrRow>{"Visible", &CalibrRow::Visible, Whole},
        Field<CalibrRow>{"Rmain", &CalibrRow::Rmain, Fixed(6)},
        Field<CalibrRow>{"Log.0", &CalibrRow::Log0, Fixed(3)},
        Field<CalibrRow>{"Proc Mode", &CalibrRow::ProcMode, Whole},
        Field<CalibrRow>{"Threshold", &CalibrRow::Threshold, Fixed(4)},
        Field<CalibrRow>{"Qup0", &CalibrRow::Qup0, Sig(8)},
        Field<CalibrRow>{"Qup1", &CalibrRow::Qup1, Sig(8)},
        Field<CalibrRow>{"Qup2", &CalibrRow::Qup2, Sig(8)},
        Field<CalibrRow>{"Qdn0", &CalibrRow::Qdn0, Sig(6)},
        Field<CalibrRow>{"Qdn1", &CalibrRow::Qdn1, Sig(8)},
        Field<CalibrRow>{"Qdn2", &CalibrRow::Qdn2, Sig(8)},
        Field<CalibrRow>{"Rup", &CalibrRow::Rup, Fixed(6)},
        Field<CalibrRow>{"Rdn", &CalibrRow::Rdn, Fixed(6)},
        Field<CalibrRow>{"Sensor ID", &CalibrRow::SensorID, Trimmed},
        Field<CalibrRow>{"Ref.Tab.FN", &CalibrRow::RefTabFN, Trimmed},
    };
    return Table;
}

std::span<const Field<ViewRow>> ViewFields()
{
    static constexpr std::array Table = {
        Field<ViewRow>{"Seat", &ViewRow::Seat, Whole},
        Field<ViewRow>{"ID", &ViewRow::ID, Text},
        Field<ViewRow>{"Mode", &ViewRow::Mode, Whole},
        Field<ViewRow>{"Oper", &ViewRow::Oper, Whole},
        Field<ViewRow>{"Aver Mode", &ViewRow::AverMode, Whole},
        Field<ViewRow>{"Color", &ViewRow::Color, Whole},
        Field<ViewRow>{"Options", &ViewRow::Options, Whole},
        Field<ViewRow>{"Min X Par", &ViewRow::MinXPar, Fixed(3)},
        Field<ViewRow>{"Max X Par", &ViewRow::MaxXPar, Fixed(3)},
        Field<ViewRow>{"Min Y Par", &ViewRow::MinYPar, Fixed(3)},
        Field<ViewRow>{"Max Y Par", &ViewRow::MaxYPar, Fixed(3)},
        Field<ViewRow>{"X1", &ViewRow::X1, Fixed(3)},
        Field<ViewRow>{"X2", &ViewRow::X2, Fixed(3)},
        Field<ViewRow>{"Y1", &ViewRow::Y1, Fixed(3)},
        Field<ViewRow>{"Y2", &ViewRow::Y2, Fixed(3)},
        Field<ViewRow>{"Offset", &ViewRow::Offset, Whole},
        Field<ViewRow>{"Arguments", &ViewRow::Arguments, Unquoted},
        Field<ViewRow>{"Functions", &ViewRow::Functions, Unquoted},
        Field<ViewRow>{"Criteria", &ViewRow::Criteria, Unquoted},
        Field<ViewRow>{"Crit.STD", &ViewRow::CritSTD, Unquoted},
        Field<ViewRow>{"Diam,Font,X,Y", &ViewRow::DiamFontXY, Unquoted},
    };
    return Table;
}

std::span<const Field<BoatRow>> BoatFields()
{
    static constexpr std::array Table = {
        Field<BoatRow>{"Seat", &BoatRow::Seat, Whole},
        Field<BoatRow>{"Side", &BoatRow::Side, Whole},
        Field<BoatRow>{"Oar Inboard", &BoatRow::OarInboard, Fixed(3)},
        Field<BoatRow>{"Oar Length", &BoatRow::OarLength, Fixed(3)},
        Field<BoatRow>{"Blade Length", &BoatRow::BladeLength, Fixed(3)},
        Field<BoatRow>{"Blade Area", &BoatRow::BladeArea, Fixed(1)},
        Field<BoatRow>{"Oar Pitch R", &BoatRow::OarPitchR, Fixed(1)},
        Field<BoatRow>{"Oar Pitch L", &BoatRow::OarPitchL, Sig(8)},
        Field<BoatRow>{"Oar CM/top", &BoatRow::OarCMTop, Sig(4)},
        Field<BoatRow>{"Oar Mass", &BoatRow::OarMass, Sig(4)},
        Field<BoatRow>{"X Foot Toes", &BoatRow::XFootToes, Sig(4)},
        Field<BoatRow>{"X Seat", &BoatRow::XSeat, Sig(4)},
        Field<BoatRow>{"Y Foot Toes", &BoatRow::YFootToes, Sig(4)},
        Field<BoatRow>{"Y Seat", &BoatRow::YSeat, Sig(4)},
        Field<BoatRow>{"Gate Height R", &BoatRow::GateHeightR, Sig(4)},
        Field<BoatRow>{"Gate Height L", &BoatRow::GateHeightL, Sig(4)},
        Field<BoatRow>{"Half Span", &BoatRow::HalfSpan, Sig(4)},
        Field<BoatRow>{"Boat Width", &BoatRow::BoatWidth, Sig(4)},
        Field<BoatRow>{"Foot Width", &BoatRow::FootWidth, Sig(4)},
        Field<BoatRow>{"Foot Size", &BoatRow::FootSize, Sig(4)},
        Field<BoatRow>{"Slides Length", &BoatRow::SlidesLength, Sig(4)},
        Field<BoatRow>{"Foot Angle", &BoatRow::FootAngle, Sig(4)},
        Field<BoatRow>{"Slides Angle", &BoatRow::SlidesAngle, Sig(4)},
        Field<BoatRow>{"Gate Pitch R0", &BoatRow::GatePitchR0, Sig(4)},
        Field<BoatRow>{"Gate Pitch R-90", &BoatRow::GatePitchR90, Sig(4)},
        Field<BoatRow>{"Gate Pitch L0", &BoatRow::GatePitchL0, Sig(4)},
        Field<BoatRow>{"Gate Pitch L-90", &BoatRow::GatePitchL90, Sig(4)},
        Field<BoatRow>{"Reserved", &BoatRow::Reserved, Sig(4)},
        Field<BoatRow>{"Oar Type", &BoatRow::OarType, Text},
        Field<BoatRow>{"Comment", &BoatRow::Comment, Text},
    };
    return Table;
}

std::span<const Field<DescRow>> DescFields()
{
    static constexpr std::array Table = {
        Field<DescRow>{"Sample ID", &DescRow::SampleID, Text},
        Field<DescRow>{"Par Count", &DescRow::ParCount, Whole},
        Field<DescRow>{"Data Count", &DescRow::DataCount, Whole},
        Field<DescRow>{"Test Time", &DescRow::TestTime, Fixed(2)},
        Field<DescRow>{"Stroke Count", &DescRow::StrokeCount, Whole},
        Field<DescRow>{"Bad Strokes", &DescRow::BadStrokes, Whole},
        Field<DescRow>{"Rate", &DescRow::Rate, Fixed(4)},
        Field<DescRow>{"Rate Dev", &DescRow::RateDev, Fixed(4)},
        Field<DescRow>{"Start", &DescRow::Start, Fixed(2)},
        Field<DescRow>{"Finish", &DescRow::Finish, Fixed(2)},
        Field<DescRow>{"Dist Real", &DescRow::DistReal, Fixed(2)},
        Field<DescRow>{"Comment", &DescRow::Comment, Text},
        Field<DescRow>{"Time Real", &DescRow::TimeReal, Fixed(2)},
        Field<DescRow>{"RawFN", &DescRow::RawFN, Text},
        Field<DescRow>{"PrimFN", &DescRow::PrimFN, Text},
        Field<DescRow>{"Video Str N", &DescRow::VideoStrN, Whole},
        Field<DescRow>{"Video FN", &DescRow::VideoFN, Text},
    };
    return Table;
}

std::span<const Field<DataRow>> DataFields()
{
    static constexpr std::array Table = {
        Field<DataRow>{"Sample ID", &DataRow::SampleID, Text},
        Field<DataRow>{"ParamID", &DataRow::ParamID, Text},
        Field<DataRow>{"Seat", &DataRow::Seat, Whole},
        Field<DataRow>{"Side", &DataRow::Side, Whole},
    };
    return Table;
}

std::span<const Field<DotRow>> DotFields()
{
    static constexpr std::array Table = {
        Field<DotRow>{"Point ID", &DotRow::PointID, Text},
        Field<DotRow>{"Point Name", &DotRow::PointName, Text},
        Field<DotRow>{"IsAngle", &DotRow::IsAngle, Whole},
    };
    return Table;
}

std::span<const Field<SegRow>> SegFields()
{
    static constexpr std::array Table = {
        Field<SegRow>{"Segment ID", &SegRow::SegmentID, Text},
        Field<SegRow>{"Segment Name", &SegRow::SegmentName, Text},
        Field<SegRow>{"ID of Start point", &SegRow::StartPointID, Text},
        Field<SegRow>{"ID of End point", &SegRow::EndPointID, Text},
        Field<SegRow>{"Start point Number", &SegRow::StartPoint, Whole},
        Field<SegRow>{"End point number", &SegRow::EndPoint, Whole},
        Field<SegRow>{"X1", &SegRow::X1, Fixed(1)},
        Field<SegRow>{"Y1", &SegRow::Y1, Fixed(1)},
        Field<SegRow>{"X2", &SegRow::X2, Fixed(1)},
        Field<SegRow>{"Y2", &SegRow::Y2, Fixed(1)},
    };
    return Table;
}

std::span<const Field<VideoIDRow>> VideoIDFields()
{
    static constexpr std::array Table = {
        Field<VideoIDRow>{"Sample ID", &VideoIDRow::SampleID, Text},
        Field<VideoIDRow>{"Video FN", &VideoIDRow::VideoFN, Text},
        Field<VideoIDRow>{"Spare 1", &VideoIDRow::Spare1, Whole},
        Field<VideoIDRow>{"First Frame", &VideoIDRow::FirstFrame, Whole},
        Field<VideoIDRow>{"Frame Count", &VideoIDRow::FrameCnt, Whole},
        Field<VideoIDRow>{"Length", &VideoIDRow::Length, Fixed(2)},
        Field<VideoIDRow>{"Point Count", &VideoIDRow::DotCnt, Whole},
        Field<VideoIDRow>{"Spare 2", &VideoIDRow::Spare2, Fixed(2)},
        Field<VideoIDRow>{"Spare 3", &VideoIDRow::Spare3, Fixed(2)},
    };
    return Table;
}

void StoreText(std::string& Value, const FieldFormat& How, std::string_view Words)
{
    Value = How.Form == FieldForm::Trimmed ? Trim(Words) : Words;
    if (How.Form == FieldForm::Unquoted) std::erase(Value, '"');
}

void StoreText(int16_t& Value, const FieldFormat&, std::string_view Words)
{
    StoreWhole(Value, Words);
}

void StoreText(int32_t& Value, const FieldFormat&, std::string_view Words)
{
    StoreWhole(Value, Words);
}

void StoreText(float& Value, const FieldFormat&, std::string_view Words)
{
    const double X = Val(Words);
    if (std::fabs(X) <= static_cast<double>(std::numeric_limits<float>::max())) Value = static_cast<float>(X);
}

void StoreText(double& Value, const FieldFormat& How, std::string_view Words)
{
    if (How.Form == FieldForm::Date)
        Value = ParseDate(Words).value_or(Value);
    else
        Value = Val(Words);
}

void StoreText(bool& Value, const FieldFormat&, std::string_view Words)
{
    Value = Val(Words) != 0;
}

void AppendText(std::string& Line, const FieldFormat&, const std::string& Value)
{
    const std::size_t Start = Line.size();
    Line += Value;
    // A tab or a line's end within a text would shift the fields that follow.
    std::replace_if(
        Line.begin() + static_cast<std::ptrdiff_t>(Start), Line.end(),
        [](char C) { return C == '\t' || C == '\r' || C == '\n'; }, ' ');
}

void AppendText(std::string& Line, const FieldFormat& How, double Value)
{
    switch (How.Form) {
    case FieldForm::Sig:
        AppendSig(Line, Value, How.Decimals);
        break;
    case FieldForm::Sig6:
        AppendSig6(Line, Value);
        break;
    case FieldForm::Truth:
        Line += FormatBool(Value != 0);
        break;
    case FieldForm::Date:
        Line.append(static_cast<std::size_t>(How.Whole), ' ');
        Line += FormatDate(Value);
        break;
    default:
        AppendFixed(Line, Value, How.Decimals, How.Whole);
    }
}
