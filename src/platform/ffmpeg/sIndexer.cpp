// Reading a clip through: without decoding where its time stamps tell the order of its pictures.
#include "platform/ffmpeg/sIndexer.h"

#include "platform/ffmpeg/mFileEnd.h"

#include <algorithm>
#include <exception>
#include <string_view>
#include <utility>

namespace {
constexpr double AlmostDone = 0.999;
constexpr double UsualTime = 0.04; // s

// Where the file's own time stamps are those of decoding, or a packet may be half a picture.
bool IsDoubtful(const sDemuxer& File)
{
    const AVCodecParameters& Coded = *File.Stream().codecpar;
    const AVCodecDescriptor* Codec = avcodec_descriptor_get(Coded.codec_id);
    if (Codec && (Codec->props & AV_CODEC_PROP_INTRA_ONLY)) return false;
    const std::string_view Format = File.Format().iformat->name;
    if (Format == "avi" || Format == "mpeg" || (File.Format().iformat->flags & AVFMT_NOTIMESTAMPS)) return true;
    return File.IsByteKind() && Coded.field_order > AV_FIELD_PROGRESSIVE;
}
} // namespace

double BaseOf(const sDemuxer& File)
{
    return av_q2d(File.Stream().time_base);
}

double UsualStep(const sDemuxer& File)
{
    const AVRational Rate = av_guess_frame_rate(&File.Format(), &File.Stream(), nullptr);
    return Rate.num > 0 && Rate.den > 0 ? av_q2d(av_inv_q(Rate)) : UsualTime;
}

void sIndexer::Start(const std::string& Path)
{
    Stop();
    IsStopped = false;
    IsDone = false;
    Share = 0;
    Work = std::thread([this, Path] {
        try {
            Make(Path);
        } catch (const std::exception&) {
            Made = std::make_shared<sClipTable>(); // without pictures: there is no memory for them
        }
        IsDone = true;
    });
}

void sIndexer::Stop()
{
    IsStopped = true;
    Wait();
}

void sIndexer::Wait()
{
    if (Work.joinable()) Work.join();
}

void sIndexer::Make(const std::string& Path)
{
    auto Table = std::make_shared<sClipTable>();
    if (!ReadAll(Path, *Table)) {
        *Table = sClipTable();
        DecodeAll(Path, *Table);
    }
    if (BreaksOff(Path)) Table->SetCut(true);
    Made = std::move(Table);
}

// False when the pictures have to be decoded to know their order.
bool sIndexer::ReadAll(const std::string& Path, sClipTable& Into)
{
    sDemuxer File;
    if (!File.Open(Path).empty()) return true;
    if (IsDoubtful(File)) return false;
    const auto Packet = Owned(av_packet_alloc());
    while (!IsStopped && File.Next(*Packet)) {
        Into.Add(*Packet, File.Stream().codecpar->codec_id);
        Share = std::min(File.Done(), AlmostDone);
    }
    if (!Into.HasOrder()) return false;
    Into.OrderByTime({});
    std::vector<int32_t> Missing = MissingAhead(Path, Into);
    if (File.IsBroken() && Into.Pictures() > 0)
        for (const int32_t Each : MissingAtEnd(Path, Into))
            Missing.push_back(Each);
    if (!Missing.empty()) Into.OrderByTime(Missing);
    Into.SetCut(File.IsCut());
    Into.FindTimes(BaseOf(File), UsualStep(File));
    return true;
}

// Pictures that are seen ahead of the first key picture, and have nothing to be decoded from.
std::vector<int32_t> sIndexer::MissingAhead(const std::string& Path, const sClipTable& Read) const
{
    const auto PacketOf = [&](int32_t Picture) { return Read.PacketOfPicture(Picture); };
    std::vector<int32_t> Missing;
    int32_t Picture = 0;
    while (Picture < Read.Pictures() && !Read.Packets()[static_cast<std::size_t>(PacketOf(Picture))].IsKey)
        Missing.push_back(PacketOf(Picture++));
    sReader Reader;
    if (Missing.empty() || Picture == Read.Pictures() || !Reader.Open(Path, 1).empty()) return {};
    while (const AVFrame* Frame = IsStopped ? nullptr : Reader.Next()) {
        if (Frame->pts == PacketOf(Picture)) break;
        std::erase(Missing, static_cast<int32_t>(Frame->pts));
    }
    return Missing;
}

// Of a file that breaks off: the packets of the last group that give no picture.
std::vector<int32_t> sIndexer::MissingAtEnd(const std::string& Path, const sClipTable& Read) const
{
    sReader Reader;
    const int32_t Last = Read.Pictures() - 1;
    const int32_t Key = Read.KeyFor(Last, static_cast<int32_t>(Read.Packets().size()));
    if (!Reader.Open(Path, 1).empty() || !Reader.GoTo(Read, Key)) return {};
    std::vector<int32_t> Missing;
    for (auto i = static_cast<std::size_t>(Key); i < Read.Packets().size(); ++i)
        if (Read.PictureOf(static_cast<int64_t>(i)) >= Read.PictureOf(Key)) Missing.push_back(static_cast<int32_t>(i));
    while (const AVFrame* Frame = IsStopped ? nullptr : Reader.Next())
        std::erase(Missing, static_cast<int32_t>(Frame->pts));
    return Missing;
}

bool sIndexer::DecodeAll(const std::string& Path, sClipTable& Into)
{
    sReader Reader;
    if (!Reader.Open(Path, 1).empty()) return false;
    const AVCodecID Codec = Reader.File().Stream().codecpar->codec_id;
    Reader.OnPacket = [&](const AVPacket& Packet) {
        Into.Add(Packet, Codec);
        Share = std::min(Reader.File().Done(), AlmostDone);
    };
    std::vector<int32_t> Order;
    std::vector<bool> IsSeen;
    while (const AVFrame* Frame = IsStopped ? nullptr : Reader.Next()) {
        const auto Packet = static_cast<std::size_t>(Frame->pts);
        IsSeen.resize(Into.Packets().size());
        if (Packet >= IsSeen.size() || IsSeen[Packet]) continue;
        IsSeen[Packet] = true;
        Order.push_back(static_cast<int32_t>(Packet));
    }
    Into.SetOrder(std::move(Order));
    Into.SetCut(Reader.File().IsCut());
    Into.FindTimes(BaseOf(Reader.File()), UsualStep(Reader.File()));
    return true;
}
