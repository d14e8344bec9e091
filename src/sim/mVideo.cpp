// Picture after picture into a file.
#include "sim/mVideo.h"

#include "base/mNumText.h"
#include "platform/ffmpeg/sFilm.h"
#include "sim/cStickFigure.h"

#include <algorithm>
#include <cmath>

int VideoPictures(double Stop, double Rate)
{
    constexpr double Most = 1e8;
    return static_cast<int>(std::ceil(std::clamp(Stop * Rate, 1.0, Most)));
}

std::string WriteVideo(const std::string& Path, const DataFile& File, cRowerModel& Model, double Stop, double Rate)
{
    const cStickFigure Figure(File, Model);
    sFilm Film;
    FilmKind Kind;
    Kind.Rate = Rate;
    Kind.BFrames = 2;
    std::string Why = Film.Begin(Path, Kind, cStickFigure::Width, cStickFigure::Height);
    for (int i = 0; Why.empty() && i < VideoPictures(Stop, Rate); ++i)
        Why = Film.Add(Figure.Draw(i / Rate, i), i);
    return Why.empty() ? Film.End() : Why;
}

std::string JointTable(const DataFile& File, cRowerModel& Model, double Stop, double Rate)
{
    const cStickFigure Figure(File, Model);
    std::string Text = "Frame\tTime\tJoint\tX\tY\tAngle\n";
    for (int i = 0; i < VideoPictures(Stop, Rate); ++i) {
        const StickPlaces Places = Figure.At(i / Rate);
        for (int Joint = 0; Joint < StickJoints; ++Joint) {
            const CanvasPlace& Place = Places[static_cast<std::size_t>(Joint)];
            const auto Angle = cStickFigure::Angle(Places, Joint);
            Text += FormatNum(i, "0") + "\t" + FormatNum(i / Rate, "0.0000") + "\t" + StickName(Joint) + "\t" +
                    FormatNum(Place.X, "0.000") + "\t" + FormatNum(Place.Y, "0.000") + "\t" +
                    (Angle ? FormatNum(*Angle, "0.000") : "") + "\n";
        }
    }
    return Text;
}
