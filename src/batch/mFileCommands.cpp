// Commands on session data files and on raw files: resave, dump, export, mend, info.
#include "batch/mCommands.h"

#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "files/mBinIO.h"
#include "files/mExport.h"
#include "files/mMend.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <cmath>
#include <filesystem>
#include <iostream>

namespace {
std::string Quoted(const std::string& Text)
{
    constexpr std::string_view Hex = "0123456789abcdef";
    std::string Result = "\"";
    for (const char C : Text) {
        const auto Byte = static_cast<unsigned char>(C);
        if (C == '"' || C == '\\')
            Result += {'\\', C};
        else if (Byte < 0x20)
            Result += {'\\', 'u', '0', '0', Hex[Byte >> 4], Hex[Byte & 15]};
        else
            Result += C;
    }
    return Result + "\"";
}

std::string Number(double X)
{
    return std::isfinite(X) ? FormatShortest(X) : "null";
}

// An object of JSON on one line, its members added one by one.
class JsonObject
{
public:
    JsonObject& Add(const std::string& Name, const std::string& Text) { return AddRaw(Name, Quoted(Text)); }
    JsonObject& Add(const std::string& Name, double X) { return AddRaw(Name, Number(X)); }
    JsonObject& AddRaw(const std::string& Name, const std::string& Json)
    {
        Members += (Members.empty() ? "" : ", ") + Quoted(Name) + ": " + Json;
        return *this;
    }
    std::string Text() const { return "{" + Members + "}"; }

private:
    std::string Members;
};

// A list of JSON with an element a line.
template <class Rows, class ToJson>
std::string JsonList(const Rows& Table, ToJson Convert)
{
    std::string Text;
    for (const auto& Row : Table)
        Text += (Text.empty() ? "\n    " : ",\n    ") + Convert(Row);
    return Text.empty() ? "[]" : "[" + Text + "\n  ]";
}

std::string ChannelJson(const CalibrRow& Row)
{
    return JsonObject()
        .Add("Chan", Row.Chan)
        .Add("ParamID", Row.ParamID)
        .Add("Seat", Row.Seat)
        .Add("Side", Row.Side)
        .Add("Proc Mode", Row.ProcMode)
        .Add("Q0", Row.Q0)
        .Add("Q1", Row.Q1)
        .Add("Q2", Row.Q2)
        .Add("Qup0", Row.Qup0)
        .Add("Qup1", Row.Qup1)
        .Add("Qup2", Row.Qup2)
        .Add("Qdn0", Row.Qdn0)
        .Add("Qdn1", Row.Qdn1)
        .Add("Qdn2", Row.Qdn2)
        .Add("Min", Row.Min)
        .Add("Max", Row.Max)
        .Add("Log.0", Row.Log0)
        .Add("Threshold", Row.Threshold)
        .Add("Sensor ID", Row.SensorID)
        .Add("Ref.Tab.FN", Row.RefTabFN)
        .Text();
}

std::string SampleJson(const DescRow& Row)
{
    return JsonObject()
        .Add("Sample ID", Row.SampleID)
        .Add("Par Count", Row.ParCount)
        .Add("Data Count", Row.DataCount)
        .Add("Test Time", Row.TestTime)
        .Add("Stroke Count", Row.StrokeCount)
        .Add("Bad Strokes", Row.BadStrokes)
        .Add("Rate", Row.Rate)
        .Add("Rate Dev", Row.RateDev)
        .Add("Start", Row.Start)
        .Add("Finish", Row.Finish)
        .Add("Dist Real", Row.DistReal)
        .Add("Time Real", Row.TimeReal)
        .Add("Comment", Row.Comment)
        .Add("RawFN", Row.RawFN)
        .Text();
}

std::string SessionJson()
{
    return JsonObject()
        .Add("SessID", gFile.SessID)
        .Add("SessDate", FormatDate(gFile.SessDate))
        .Add("Place", gFile.Place)
        .Add("Coach", gFile.Coach)
        .Add("Sex", gFile.Sex)
        .Add("BoatType", gFile.BoatType)
        .Add("Category", gFile.Category)
        .Add("AgeGroup", gFile.AgeGroup)
        .Add("SessNum", gFile.SessNum)
        .Add("TestDist", static_cast<double>(gFile.TestDist))
        .Add("BoatMake", gFile.BoatMake)
        .Add("Comment", gFile.Comment)
        .Add("Model", gFile.Model)
        .Add("SampleCnt", gFile.SampleCnt)
        .Add("SlaveCnt", gFile.SlaveCnt)
        .Add("SlaveChans", gFile.SlaveChans)
        .Add("ChanCnt", gFile.ChanCnt)
        .Add("TimeStep", gFile.TimeStep)
        .Add("KeyMode", gFile.KeyMode)
        .Add("KeyChanID", gFile.KeyChanID)
        .Add("KeyThres", static_cast<double>(gFile.KeyThres))
        .Text();
}

void AppendFrame(std::string& Text, int Index)
{
    AppendFixed(Text, Index, 0);
    Text += '\t';
    AppendFixed(Text, gScanData[0], 3);
    Text += '\t';
    for (int Chan = 1; Chan <= gFile.ChanCnt; ++Chan) {
        AppendFixed(Text, At(gScanData, Chan), 0);
        Text += '\t';
    }
    Text += "\r\n";
}
} // namespace

bool DoResave(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    const SectionFilter Filter = Line.Text("--filter", "Any") == "Non" ? SectionFilter::Non : SectionFilter::Any;
    return WriteDataFile(Line.Files[1], gFile, Filter);
}

bool DoDump(const Args& Line)
{
    if (!LoadSession(Line.Files[0]) || !OpenScanFile(Line.Files[1])) return false;
    WholeFile File(Line.Files[2]);
    std::string Text = "N\tT\t";
    for (int Chan = 1; Chan <= gFile.ChanCnt; ++Chan)
        Text += FormatNum(Chan, "0") + '\t';
    File.Append(Text + "\r\n");
    int Count = 0;
    for (; ReadFrame(); ++Count) {
        Text.clear();
        AppendFrame(Text, Count);
        File.Append(Text);
    }
    if (Count == 0) ReportNoFrames(Line.Files[1]);
    if (CloseScanFile() && File.Commit()) return true;
    if (!File.Failure().empty()) FileFailed(CantWrite, Line.Files[2], TitleWarning, File.Failure());
    return false;
}

bool DoExport(const Args& Line)
{
    if (!LoadSession(Line.Files[0]) || !LoadRaw(Line.Files[1], Line)) return false;
    if (gRaw.UBound() < 0) ReportNoFrames(Line.Files[1]);
    return WriteText(Line.Files[2], Line.Whole("--from", 0), Line.Whole("--to", gRaw.UBound()));
}

bool DoMend(const Args& Line)
{
    const std::string& Out = Line.Files[1];
    if (std::filesystem::is_regular_file(Out) && !AskYesNo("Are you sure to replace file " + Out + "?", TitleWarning))
        return false;
    const auto Result = MendRawFile(Line.Files[0], Out);
    if (Result) std::cout << Result->Words() << ": " << Out << std::endl;
    return Result.has_value();
}

bool DoInfo(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    std::cout << "{\n  \"session\": " << SessionJson() << ",\n  \"channels\": " << JsonList(gFile.Calibr, ChannelJson)
              << ",\n  \"samples\": " << JsonList(gFile.Desc, SampleJson) << "\n}" << std::endl;
    return true;
}
