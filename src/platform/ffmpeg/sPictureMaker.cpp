// Scaling, colours and turning.
#include "platform/ffmpeg/sPictureMaker.h"

extern "C" {
#include <libavutil/display.h>
#include <libavutil/pixdesc.h>
}

#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace {
constexpr int HighDefinition = 720; // rows from which colours that are not named are those of high definition

int MatrixOf(const AVFrame& Frame)
{
    if (Frame.colorspace == AVCOL_SPC_UNSPECIFIED || Frame.colorspace == AVCOL_SPC_RGB)
        return Frame.height >= HighDefinition ? SWS_CS_ITU709 : SWS_CS_ITU601;
    return Frame.colorspace;
}

bool IsFullRange(const AVFrame& Frame)
{
    constexpr std::array Full = {AV_PIX_FMT_YUVJ420P, AV_PIX_FMT_YUVJ422P, AV_PIX_FMT_YUVJ444P, AV_PIX_FMT_YUVJ440P,
                                 AV_PIX_FMT_YUVJ411P};
    for (const AVPixelFormat Each : Full)
        if (Frame.format == Each) return true;
    return Frame.color_range == AVCOL_RANGE_JPEG;
}

const int32_t* MatrixIn(const AVStream& Stream, const AVFrame& Frame)
{
    std::size_t Size = 0;
    const uint8_t* OfStream = av_stream_get_side_data(&Stream, AV_PKT_DATA_DISPLAYMATRIX, &Size);
    if (OfStream && Size >= 9 * sizeof(int32_t)) return reinterpret_cast<const int32_t*>(OfStream);
    const AVFrameSideData* OfFrame = av_frame_get_side_data(&Frame, AV_FRAME_DATA_DISPLAYMATRIX);
    return OfFrame ? reinterpret_cast<const int32_t*>(OfFrame->data) : nullptr;
}
} // namespace

void sPictureMaker::Begin(AVFormatContext& Format, AVStream& Stream, const AVFrame& Frame)
{
    *this = {};
    Width0 = Frame.width;
    Height0 = Frame.height;
    // The library only reads the frame.
    const AVRational Aspect = av_guess_sample_aspect_ratio(&Format, &Stream, const_cast<AVFrame*>(&Frame));
    constexpr double Most = 16;
    const double Ratio = Aspect.num > 0 && Aspect.den > 0 ? av_q2d(Aspect) : 1;
    if (Ratio < Most && Ratio > 1 / Most) Width0 = static_cast<int>(std::lround(Frame.width * Ratio));
    TakeTurn(Stream, Frame);
}

// A place x, y of the frame is seen at a x + c y, b x + d y; turns by a right angle have either a and d or b and c.
void sPictureMaker::TakeTurn(const AVStream& Stream, const AVFrame& Frame)
{
    const int32_t* Matrix = MatrixIn(Stream, Frame);
    if (!Matrix) return;
    constexpr int A = 0;
    constexpr int B = 1;
    constexpr int C = 3;
    constexpr int D = 4;
    IsTurned = std::abs(static_cast<int64_t>(Matrix[B])) > std::abs(static_cast<int64_t>(Matrix[A]));
    IsFlippedX = Matrix[IsTurned ? C : A] < 0;
    IsFlippedY = Matrix[IsTurned ? B : D] < 0;
}

bool sPictureMaker::Prepare(const AVFrame& Frame)
{
    const int Space = MatrixOf(Frame);
    const int Range = IsFullRange(Frame) ? 1 : 0;
    if (Scaler && Frame.width == SourceWidth && Frame.height == SourceHeight && Frame.format == SourceFormat &&
        Space == SourceSpace && Range == SourceRange)
        return true;
    Scaler.reset(sws_getContext(Frame.width, Frame.height, static_cast<AVPixelFormat>(Frame.format), Width0, Height0,
                                AV_PIX_FMT_RGB32, SWS_BILINEAR, nullptr, nullptr, nullptr));
    if (!Scaler) return false;
    constexpr int One = 1 << 16;
    sws_setColorspaceDetails(Scaler.get(), sws_getCoefficients(Space), Range, sws_getCoefficients(SWS_CS_DEFAULT), 1, 0,
                             One, One);
    SourceWidth = Frame.width;
    SourceHeight = Frame.height;
    SourceFormat = Frame.format;
    SourceSpace = Space;
    SourceRange = Range;
    return true;
}

void sPictureMaker::Reuse(const std::shared_ptr<const Picture>& Old)
{
    // Each picture is made here, as one that can be changed.
    if (Old && Old.use_count() == 1) Spare = std::move(std::const_pointer_cast<Picture>(Old)->Pixels);
}

std::shared_ptr<const Picture> sPictureMaker::Make(const AVFrame& Frame)
{
    if (!Prepare(Frame)) return nullptr;
    constexpr int Margin = 16; // pixels: the scaler may write past the end of a row
    const auto Row = static_cast<std::size_t>(Width0);
    const auto Rows = static_cast<std::size_t>(Height0);
    auto Made = std::make_shared<Picture>();
    Made->Width = Width0;
    Made->Height = Height0;
    Made->Pixels = std::exchange(Spare, {});
    Made->Pixels.resize(Row * Rows + Margin);
    auto* Bytes = reinterpret_cast<uint8_t*>(Made->Pixels.data());
    const int Stride = Width0 * static_cast<int>(sizeof(uint32_t));
    if (sws_scale(Scaler.get(), Frame.data, Frame.linesize, 0, Frame.height, &Bytes, &Stride) < 0) return nullptr;
    Made->Pixels.resize(Row * Rows);
    const AVPixFmtDescriptor* Kind = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(Frame.format));
    constexpr uint32_t Opaque = 0xFF000000;
    if (Kind && (Kind->flags & AV_PIX_FMT_FLAG_ALPHA))
        for (uint32_t& Each : Made->Pixels)
            Each |= Opaque;
    if (IsTurned || IsFlippedX || IsFlippedY) *Made = Turned(*Made);
    return Made;
}

Picture sPictureMaker::Turned(const Picture& From) const
{
    Picture To;
    To.Width = Width();
    To.Height = Height();
    To.Pixels.resize(From.Pixels.size());
    std::size_t Next = 0;
    for (int Y = 0; Y < To.Height; ++Y)
        for (int X = 0; X < To.Width; ++X) {
            const int Across = IsFlippedX ? To.Width - 1 - X : X;
            const int Down = IsFlippedY ? To.Height - 1 - Y : Y;
            const int Column = IsTurned ? Down : Across;
            const int Row = IsTurned ? Across : Down;
            To.Pixels[Next++] = From.Pixels[static_cast<std::size_t>(Row) * static_cast<std::size_t>(From.Width) +
                                            static_cast<std::size_t>(Column)];
        }
    return To;
}
