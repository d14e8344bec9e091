// Lines of replies, and the one that is due.
#include "platform/plain/sMonitor.h"

#include "platform/mMonitorFrame.h"

#include <algorithm>
#include <charconv>

namespace {
constexpr int64_t ReplyMs = 20; // from one reply to the next

bool IsBlank(char Letter)
{
    return Letter == ' ' || Letter == '\t' || Letter == '\r';
}

PlayedReply ParseLine(std::string Line)
{
    std::erase_if(Line, IsBlank);
    if (Line == "-") return {PlayedReply::Failed, {}};
    PlayedReply Read;
    if (Line.size() % 2 != 0) return {PlayedReply::NotHex, {}};
    for (std::size_t i = 0; i < Line.size(); i += 2) {
        uint8_t Byte = 0;
        const char* const End = Line.data() + i + 2;
        const auto [Last, Error] = std::from_chars(Line.data() + i, End, Byte, 16);
        if (Error != std::errc{} || Last != End) return {PlayedReply::NotHex, {}};
        Read.Bytes.push_back(Byte);
    }
    return Read;
}
} // namespace

std::vector<PlayedReply> ParseReplies(const std::string& Text)
{
    std::vector<PlayedReply> Replies;
    for (std::size_t From = 0; From < Text.size();) {
        const std::size_t End = std::min(Text.find('\n', From), Text.size());
        Replies.push_back(ParseLine(Text.substr(From, End - From)));
        From = End + 1;
    }
    return Replies;
}

eMonitorCode sMonitor::Open(int16_t)
{
    Begin = std::chrono::steady_clock::now();
    return eMonitorCode::Success;
}

// It has no version and no serial number, which are asked for by a single byte.
eMonitorCode sMonitor::Command(std::span<const uint8_t> Frame, std::vector<uint8_t>& Reply, int)
{
    using namespace std::chrono;
    if (UnpackFrame(Frame).Bytes.size() == 1) return eMonitorCode::NoAnswer;
    const int64_t Since = duration_cast<milliseconds>(steady_clock::now() - Begin).count();
    const PlayedReply& Due = Replies[static_cast<std::size_t>(Since / ReplyMs) % Replies.size()];
    Reply = Due.Bytes;
    return Due.Kind == PlayedReply::Frame ? eMonitorCode::Success : eMonitorCode::NoAnswer;
}
