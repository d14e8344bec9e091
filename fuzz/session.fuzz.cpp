// Any bytes as a session data file: parsed, written, and what was written parses alike.
#include "program.h"

#include "base/mCodePage.h"
#include "core/mGlobData.h"
#include "core/mTextRows.h"
#include "files/mTextIO.h"

#include <cstdint>
#include <set>

namespace {
// Whether a row begins with a word that means something else to the reader, which the format cannot help.
bool HasMisleadingRow(std::string_view Text)
{
    static const std::set<std::string_view> Keywords = {
        "Main", "Sess", "Crew", "Calibr", "View1",   "View3",   "View4",   "Boat",      "Desc",
        "Data", "Calc", "STD",  "Models", "VidDots", "VidSegs", "VideoID", "VidCoords", "VidAngles"};
    LineReader Lines(Text);
    for (std::string_view Line; Lines.Take(Line);) {
        const auto Tab = Line.find('\t');
        if (Tab == std::string_view::npos) continue;
        if (Line.starts_with("End") || Keywords.contains(Line.substr(0, Tab))) return true;
    }
    return false;
}

bool Read(const std::string& Bytes)
{
    gFile = {};
    gDots.Clear();
    gSegs.Clear();
    gVideoID.Clear();
    return ParseDataFile(Bytes, "session", gFile, SectionFilter::Any);
}

// Bytes of what was read; aborts when they do not stand for its text.
std::string Written()
{
    const std::string Text = DataFileText(gFile, SectionFilter::Any);
    const std::string Bytes = EncodeText(Text, gFile.Encoding, TextPage());
    TextEncoding Encoding{};
    if (DecodeText(Bytes, Encoding, TextPage()) != Text) std::abort();
    return Bytes;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, std::size_t Size)
{
    StartProgram();
    gExpSTD = 1;
    gCodePage = Size % 2 == 0 ? 1252 : 1251;
    if (!Read(std::string(AsText(Data, Size)))) return 0;
    const std::string First = Written();
    if (!Read(First)) std::abort();
    if (HasMisleadingRow(First)) return 0;
    // A number that rounding took over a power of ten has its last form after the second reading only.
    const std::string Second = Written();
    if (!Read(Second) || Written() != Second) std::abort();
    return 0;
}
