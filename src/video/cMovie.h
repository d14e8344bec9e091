// The MPEG player's movie: commands as text strings, served by a clip. Positions are milliseconds.
#pragma once

#include "platform/iMedia.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

class cMovie
{
public:
    /// Clip: null in a program that reads no video.
    explicit cMovie(std::unique_ptr<iMedia> Clip);
    ~cMovie();
    cMovie(const cMovie&) = delete;
    cMovie& operator=(const cMovie&) = delete;

    /// Called when another picture is to be seen, or a text has changed.
    std::function<void()> OnShow;

    /// Opens a clip, whose name may stand between quotation marks, and shows its first picture. False when it cannot be
    /// rendered (reported to the user).
    bool VideoFileOpen(const std::string& Path);

    // The buttons. They look around in the movie: the play clock stays, and its next step shows its picture again.
    void Play();
    void Pause();
    void Next();
    void Prev();

    /// Shows the picture of gPlayFrame, at gPlayStep a picture.
    void GoCurTime();

    /// A position within the clip: at or below 0 it becomes the end and gPlayFrame FrameCnt, at or past the end 0 and
    /// gPlayFrame 1.
    double CheckEnd(double Position);

    /// Why no picture is seen, in words; empty when one is.
    const std::string& Trouble() const { return Reason; }

    bool IsRunning() const { return Timer != 0; }
    const std::shared_ptr<const Picture>& Shown() const { return Seen; }
    const std::string& SetPos() const { return SetPosText; } // "SetPos=" and so on, empty until there is a value
    const std::string& RetPos() const { return RetPosText; }
    const std::string& RetVal() const { return RetValText; }
    const std::string& VideoFN() const { return Name; }
    int32_t FrameCnt() const { return Frames; }
    double LengthMs() const { return Length; }

private:
    void Send(const std::string& Command);
    bool Serve(const std::string& Command);
    bool Seek(const std::string& To);
    double Position() const;
    void Run();
    void Hold();
    void Tick();
    void TakeLength();
    void Show();
    void SayPosition();
    void MoveTo(double Position, double First);

    std::unique_ptr<iMedia> Clip;
    std::string Name;
    int32_t Frames = 0;
    double Length = 0;
    int32_t LastRet = 0; // 0: the last command was obeyed
    std::string Reply;
    bool IsOpen = false;
    bool IsIndexed = false; // the clip's length is final
    double Place = 0;       // ms, where the movie stands, or stood when it began to run
    int64_t Since = 0;
    int Timer = 0;
    std::shared_ptr<const Picture> Seen;
    std::string Reason;
    std::string SetPosText;
    std::string RetPosText;
    std::string RetValText;
};
