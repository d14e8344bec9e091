// Opening, reading and seeking through the media library.
#include "platform/ffmpeg/sDemuxer.h"

#include "platform/ffmpeg/mFileEnd.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

namespace {
// They take any text for a picture of letters.
constexpr std::array<std::string_view, 5> TextFormats = {"tty", "bin", "xbin", "adf", "idf"};

// What can be said of a file without its format; empty when nothing is wrong.
std::string FileTrouble(const std::string& Path)
{
    std::error_code Error;
    const std::filesystem::file_status Status = std::filesystem::status(Path, Error);
    if (!std::filesystem::exists(Status)) return "there is no such file";
    if (!std::filesystem::is_regular_file(Status)) return "it is no file";
    if (std::filesystem::file_size(Path, Error) == 0 && !Error) return "it is empty";
    return {};
}

// A file that cannot be opened because its end is missing says so.
std::string OpenTrouble(const std::string& Path, const std::string& Why)
{
    if (BreaksOff(Path)) return "it breaks off, and what is left of it cannot be shown: copy it anew";
    return Why;
}

FFmpegPtr<AVDictionary> FileOptions()
{
    AVDictionary* Options = nullptr;
    av_dict_set(&Options, "protocol_whitelist", "file", 0);
    return FFmpegPtr<AVDictionary>(Options);
}
} // namespace

std::string sDemuxer::Open(const std::string& Path)
{
    av_log_set_level(AV_LOG_QUIET);
    Context.reset();
    Video = nullptr;
    Broken = false;
    Cut = false;
    if (std::string Why = FileTrouble(Path); !Why.empty()) return Why;
    AVFormatContext* Opened = nullptr;
    AVDictionary* Options = FileOptions().release();
    // The prefix keeps a name such as "http:..." a name.
    const int Failure = avformat_open_input(&Opened, ("file:" + Path).c_str(), nullptr, &Options);
    const FFmpegPtr<AVDictionary> Unused(Options);
    if (Failure < 0) return OpenTrouble(Path, FFmpegError(Failure));
    Context.reset(Opened);
    if (std::find(TextFormats.begin(), TextFormats.end(), Context->iformat->name) != TextFormats.end())
        return FFmpegError(AVERROR_INVALIDDATA);
    if (const int Missing = avformat_find_stream_info(Context.get(), nullptr); Missing < 0)
        return OpenTrouble(Path, FFmpegError(Missing));
    std::string Why = FindStream(Path);
    if (!Why.empty()) Video = nullptr;
    return Why;
}

std::string sDemuxer::FindStream(const std::string& Path)
{
    const int Best = av_find_best_stream(Context.get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (Best < 0) return OpenTrouble(Path, "there is no video in it, only sound or data");
    Video = Context->streams[Best];
    if (Video->disposition & AV_DISPOSITION_ATTACHED_PIC)
        return "there is no video in it, only sound with a cover picture";
    if (Video->codecpar->width < 1 || Video->codecpar->height < 1)
        return OpenTrouble(Path, FFmpegError(AVERROR_INVALIDDATA));
    for (unsigned i = 0; i < Context->nb_streams; ++i)
        Context->streams[i]->discard = static_cast<int>(i) == Best ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    return {};
}

bool sDemuxer::Next(AVPacket& Packet)
{
    while (true) {
        av_packet_unref(&Packet);
        const int Result = av_read_frame(Context.get(), &Packet);
        if (Result == AVERROR(EAGAIN)) continue;
        if (Result < 0) {
            const bool HasFailed = Result != AVERROR_EOF || (Context->pb && Context->pb->error < 0);
            Cut |= HasFailed;
            Broken |= Cut;
            return false;
        }
        if (Packet.stream_index != Video->index || Packet.size == 0) continue;
        Cut = (Packet.flags & AV_PKT_FLAG_CORRUPT) != 0;
        Broken |= Cut;
        return true;
    }
}

bool sDemuxer::SeekTime(int64_t Stamp)
{
    return av_seek_frame(Context.get(), Video->index, Stamp, AVSEEK_FLAG_BACKWARD) >= 0;
}

bool sDemuxer::SeekByte(int64_t Place)
{
    if (Context->iformat->flags & AVFMT_NO_BYTE_SEEK) return false;
    return av_seek_frame(Context.get(), Video->index, Place, AVSEEK_FLAG_BYTE) >= 0;
}

bool sDemuxer::IsByteKind() const
{
    return (Context->iformat->flags & (AVFMT_TS_DISCONT | AVFMT_NOTIMESTAMPS)) != 0;
}

double sDemuxer::Done() const
{
    AVIOContext* Bytes = Context->pb;
    const int64_t Size = Bytes ? avio_size(Bytes) : 0;
    return Size > 0 ? std::clamp(static_cast<double>(avio_tell(Bytes)) / static_cast<double>(Size), 0.0, 1.0) : 0;
}
