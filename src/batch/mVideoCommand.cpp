// The command video: what a clip is, and one of its pictures as a file.
#include "batch/mCommands.h"

#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mVideoFile.h"
#include "platform/ffmpeg/mMedia.h"
#include "platform/mHost.h"

#include <iostream>

namespace {
// A command's result is of the whole clip, so it waits for the index.
std::unique_ptr<iMedia> OpenClip(const std::string& Path)
{
    auto Clip = gHost.MakeMedia();
    if (!Clip->Open(Path)) {
        FileFailed(CantOpen, Path, TitleError, Clip->Reason());
        return nullptr;
    }
    Clip->WaitForIndex();
    if (const ClipInfo Info = Clip->Info(); Info.IsCut) MsgBox(CutText(Path, Info.Frames), TitleWarning);
    return Clip;
}

void PrintInfo(const ClipInfo& Info)
{
    constexpr int Digits = 9;
    std::cout << "{\n  \"frames\": " << FormatNum(Info.Frames, "0")
              << ",\n  \"duration\": " << FormatGeneral(Info.Duration, Digits)
              << ",\n  \"step\": " << FormatGeneral(Info.Step, Digits)
              << ",\n  \"width\": " << FormatNum(Info.Width, "0") << ",\n  \"height\": " << FormatNum(Info.Height, "0")
              << ",\n  \"codec\": \"" << Info.Codec << "\"\n}" << std::endl;
}

bool SaveFrame(iMedia& Clip, int32_t Number, const std::string& Video, const std::string& Out)
{
    const int Frames = Clip.Info().Frames;
    if (Number >= Frames) {
        MsgBox("There is no picture " + FormatNum(Number, "0") + ": the last one is " + FormatNum(Frames - 1, "0") +
                   " in file: " + Video,
               TitleError);
        return false;
    }
    const auto Shown = Clip.Frame(Number);
    if (!Shown || !Clip.Reason().empty()) return FileFailed(CantRead, Video, TitleError, Clip.Reason());
    const auto Png = AsPng(*Shown);
    if (!Png) return FileFailed(CantWrite, Out, TitleError, "the picture cannot be coded");
    return SaveText(Out, *Png);
}
} // namespace

bool DoVideo(const Args& Line)
{
    const auto Clip = OpenClip(Line.Files[0]);
    if (!Clip) return false;
    if (Line.Has("--frame")) return SaveFrame(*Clip, Line.Whole("--frame", 0), Line.Files[0], Line.Files[1]);
    if (Clip->Info().Frames > 0) {
        PrintInfo(Clip->Info());
        return true;
    }
    return FileFailed(CantRead, Line.Files[0], TitleError, "no picture in it can be decoded");
}

std::string VideoObjection(const Args& Line)
{
    if (Line.Has("--frame") != (Line.Files.size() == 2)) return "--frame N and OUT.png belong together";
    return Line.Whole("--frame", 0) < 0 ? "pictures are counted from 0" : "";
}
