// Any bytes as the reply of a performance monitor, and as a file of replies.
#include "program.h"

#include "ergometer/mPMI.h"
#include "platform/mMonitorFrame.h"
#include "platform/plain/sMonitor.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, std::size_t Size)
{
    const std::span Bytes(Data, Size);
    std::string Fault;
    // As a frame, and as the contents of a whole one, so that answers are reached without guessing a checksum.
    if (const auto Figures = DecodePoll(Bytes, Fault); Figures && Figures->Line().empty()) std::abort();
    if (const auto Figures = DecodePoll(PackFrame(Bytes), Fault); Figures && Figures->Line().empty()) std::abort();
    if (!std::ranges::equal(UnpackFrame(PackFrame(Bytes)).Bytes, Bytes)) std::abort();
    const std::vector<uint8_t> Report = PackReport(PackFrame(Bytes));
    if (!Report.empty() && FrameInReport(std::span(Report).subspan(1)) != PackFrame(Bytes)) std::abort();
    for (const PlayedReply& Each : ParseReplies(std::string(AsText(Data, Size))))
        DecodePoll(Each.Bytes, Fault);
    return 0;
}
