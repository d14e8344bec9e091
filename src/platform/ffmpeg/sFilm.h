// Writes a video file picture by picture.
#pragma once

#include "platform/ffmpeg/mFFmpeg.h"
#include "platform/iMedia.h"

#include <functional>

/// How a film is coded. What is not given follows from the file's name.
struct FilmKind
{
    std::string Codec;               // name of the encoder; empty: the file format's usual one
    double Rate = 25;                // pictures a second
    int BFrames = 0;                 // between reference pictures
    int Group = 0;                   // pictures from one key picture to the next; 0: the encoder's choice
    int64_t FirstTick = 0;           // of the first picture, in pictures
    double PixelAspect = 1;          // displayed width by stored width
    std::string Preset = "veryfast"; // of an encoder that has them
    int TableBytes = 0;              // kept at the front of an mp4 for its table of pictures; 0: it stands at the end
    int Turn = 0;                    // degrees clockwise that a player turns the picture by: 0, 90, 180, 270
};

class sFilm
{
public:
    sFilm() = default;
    ~sFilm();
    sFilm(const sFilm&) = delete;
    sFilm& operator=(const sFilm&) = delete;

    /// Begins a film of that size. Gives an empty text, or why it cannot be written. Width and Height must be even.
    std::string Begin(const std::string& Path, const FilmKind& Kind, int Width, int Height);

    /// Adds a picture, which is seen at Tick: pictures of the constant rate from the start of the film.
    std::string Add(const Picture& Shown, int64_t Tick);

    /// Ends the film, which takes the place of the file only now: without it no file is left.
    std::string End();

private:
    std::string AddStream(const FilmKind& Kind, int Width, int Height);
    std::string OpenCoder(const AVCodec& Codec, const FilmKind& Kind, int Width, int Height);
    void SetTurn(int Degrees);
    bool Convert(const Picture& Shown);
    std::string Send(AVFrame* Frame);

    std::string Target;
    std::string Temporary; // empty: there is none
    struct CloseOutput
    {
        void operator()(AVFormatContext* Context) const
        {
            avio_closep(&Context->pb);
            avformat_free_context(Context);
        }
    };
    std::unique_ptr<AVFormatContext, CloseOutput> Format;
    AVStream* Stream = nullptr;
    FFmpegPtr<AVCodecContext> Coder;
    FFmpegPtr<AVFrame> Frame;
    FFmpegPtr<AVPacket> Packet;
    FFmpegPtr<SwsContext> Scaler;
    int64_t FirstTick = 0;
};
