// Text export against a plain to_chars loop, and the session data file against a copy field by field.
#include "recording.h"

#include "base/mCodePage.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "files/mBinIO.h"
#include "files/mExport.h"
#include "files/mTextIO.h"

#include <benchmark/benchmark.h>
#include <charconv>
#include <cstdio>
#include <string>
#include <vector>

namespace {
constexpr int StoreFrames = 32000;

void LoadStore()
{
    MakeBenchSession();
    int32_t Start = 0;
    int32_t Stop = 0;
    ReadRawFile(BenchRecording(StoreFrames), Start, Stop);
}

void WriteValue(std::FILE* File, double X, int Decimals)
{
    char Room[64];
    char* End = std::to_chars(Room, Room + sizeof Room - 1, X, std::chars_format::fixed, Decimals).ptr;
    *End++ = '\t';
    std::fwrite(Room, 1, static_cast<std::size_t>(End - Room), File);
}

void ExportPlainly(const std::string& Path)
{
    std::FILE* File = std::fopen(Path.c_str(), "wb");
    for (int i = 0; i <= gRaw.UBound(); ++i) {
        WriteValue(File, i, 0);
        WriteValue(File, gRaw(0, i), 3);
        for (int Chan = 1; Chan <= BenchChannels; ++Chan)
            WriteValue(File, gRaw(Chan, i), 9);
        std::fputs("\r\n", File);
    }
    std::fclose(File);
}

void Export(benchmark::State& State)
{
    LoadStore();
    const std::string Path = BenchFolder() + "/export.txt";
    for (auto _ : State)
        benchmark::DoNotOptimize(WriteText(Path, 0, gRaw.UBound()));
}

void ExportReference(benchmark::State& State)
{
    LoadStore();
    const std::string Path = BenchFolder() + "/export.txt";
    for (auto _ : State)
        ExportPlainly(Path);
}

// A session data file of about 300 kB: 80 channels and 10 samples.
const std::string& SessionPath()
{
    static const std::string Path = BenchFolder() + "/session.txt";
    MakeBenchSession();
    for (int Sample = 1; Sample <= 8; ++Sample) {
        DescRow& Row = gFile.Desc.Grow();
        Row.SampleID = "S" + FormatNum(Sample, "00");
        Row.ParCount = BenchChannels;
        Row.DataCount = 50;
        for (int Chan = 1; Chan <= BenchChannels; ++Chan) {
            DataRow& Data = gFile.Data.Grow();
            Data.SampleID = Row.SampleID;
            Data.ParamID = gFile.Calibr[Chan].ParamID;
            for (int j = 0; j <= 50; ++j)
                Data.Values.push_back(Chan * 1.234567 + j * 0.731 - 50);
        }
    }
    WriteDataFile(Path, gFile, SectionFilter::Any);
    return Path;
}

void Session(benchmark::State& State)
{
    const std::string& Path = SessionPath();
    const std::string Copy = BenchFolder() + "/copy.txt";
    SetCurFile(Path);
    for (auto _ : State) {
        ReadDataFile(Path, gFile, SectionFilter::Any);
        const std::string Bytes = EncodeText(DataFileText(gFile, SectionFilter::Any), gFile.Encoding, TextPage());
        benchmark::DoNotOptimize(SaveWhole(Copy, Bytes, Durability::Fast));
    }
    State.SetBytesProcessed(State.iterations() * static_cast<int64_t>(ReadWhole(Path)->size()));
}

void CopyFieldByField(const std::string& From, const std::string& To)
{
    std::FILE* In = std::fopen(From.c_str(), "rb");
    std::string Bytes(1 << 20, '\0');
    Bytes.resize(std::fread(Bytes.data(), 1, Bytes.size(), In));
    std::fclose(In);
    std::FILE* Out = std::fopen(To.c_str(), "wb");
    std::string Line;
    for (std::size_t At = 0; At < Bytes.size();) {
        const std::size_t End = std::min(Bytes.find_first_of("\t\n", At), Bytes.size() - 1);
        const char* First = Bytes.data() + At;
        double X = 0;
        const auto [Rest, Error] = std::from_chars(First, Bytes.data() + End, X);
        if (Error == std::errc{}) {
            char Room[64];
            const auto Dot = std::string_view(First, static_cast<std::size_t>(Rest - First)).find('.');
            const int Decimals =
                Dot == std::string_view::npos ? 0 : static_cast<int>(Rest - First - 1) - static_cast<int>(Dot);
            Line.append(Room, std::to_chars(Room, Room + sizeof Room, X, std::chars_format::fixed, Decimals).ptr);
        } else
            Line.append(First, End - At);
        Line += Bytes[End];
        At = End + 1;
    }
    std::fwrite(Line.data(), 1, Line.size(), Out);
    std::fclose(Out);
}

void SessionReference(benchmark::State& State)
{
    const std::string& Path = SessionPath();
    for (auto _ : State)
        CopyFieldByField(Path, BenchFolder() + "/copy.txt");
}

BENCHMARK(Export)->Name("export")->Unit(benchmark::kMillisecond);
BENCHMARK(ExportReference)->Name("export/reference")->Unit(benchmark::kMillisecond);
BENCHMARK(Session)->Name("session")->Unit(benchmark::kMillisecond);
BENCHMARK(SessionReference)->Name("session/reference")->Unit(benchmark::kMillisecond);
} // namespace
