// The command play: curves and current values of the play view.
#include "batch/mCommands.h"
#include "batch/mTabText.h"

#include "core/mGlobData.h"
#include "files/mBinIO.h"
#include "platform/mHost.h"
#include "views/play/cPlay.h"

#include <cmath>
#include <filesystem>
#include <optional>

namespace {
// The window's points that hold data, at the times of their samples.
void WritePoints(TabText& Table, double Place, const PlayRow& Row)
{
    const auto Ys = Row.Plot.Ys();
    for (std::size_t k = 0; k < Ys.size(); ++k) {
        if (std::isnan(Ys[k])) continue;
        Table.Cell(Place).Cell(Row.Number).Cell(Row.Plot.Row().ID).Cell(static_cast<double>(k));
        Table.Cell(gRaw(0, Row.Plot.FirstSample() + static_cast<int32_t>(k))).Cell(Ys[k]).EndLine();
    }
}

void WritePlace(TabText& Table, double Place, const cPlay& Play)
{
    for (const PlayRow& Row : Play.Rows()) {
        if (Row.Figure) continue;
        if (Play.Data().Mode == PlayPrimary) WritePoints(Table, Place, Row);
        Table.Cell(Place).Cell(Row.Number).Cell(Row.Plot.Row().ID).Cell("V").Cell("");
        if (const auto Value = Row.Plot.Current())
            Table.Cell(*Value).EndLine();
        else
            Table.Cell("").EndLine();
    }
}

// Nothing when it cannot be loaded (reported to the user).
std::optional<PlayData> LoadPlayed(const Args& Line)
{
    PlayData Data;
    if (!Line.Has("--sample")) {
        const std::string Raw = Line.Text("--raw", "");
        Data.Mode = PlayPrimary;
        Data.FileName = std::filesystem::path(Raw).filename().string();
        if (!LoadRaw(Raw, Line)) return {};
        return Data;
    }
    const std::string Sample = Line.Text("--sample", "");
    Data.Sample = static_cast<int16_t>(FindDesc(gFile, Sample, DescKey::TestID));
    if (Data.Sample >= 1) return Data;
    MsgBox("There is no sample " + Sample + " in file: " + Line.Files[0], TitleError);
    return {};
}
} // namespace

std::string PlayObjection(const Args& Line)
{
    if (Line.Has("--raw") == Line.Has("--sample")) return "play takes --raw or --sample";
    return Line.Has("--at") ? "" : "play takes --at";
}

bool DoPlay(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    const auto Data = LoadPlayed(Line);
    cPlay Play;
    if (!Data || !Play.InitData(*Data)) return false;
    for (const std::string& Note : Play.Notes())
        MsgBox(Note, TitleWarning);
    TabText Table("At\tRow\tID\tKey\tX\tY");
    for (const double Place : Line.Reals("--at")) {
        if (Data->Mode == PlayPrimary)
            Play.MovePrim(Place);
        else
            Play.CalcNorm(Place);
        WritePlace(Table, Place, Play);
    }
    return SaveText(Line.Files[1], Table.Text());
}
