// The performance monitor without a window: replies from a file, or from a unit on USB.
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "batch/mCommands.h"
#include "ergometer/cPMPoll.h"
#include "platform/mHost.h"
#include "platform/plain/sEventLoop.h"
#include "platform/plain/sMonitor.h"

#include <csignal>
#include <iostream>
#include <poll.h>
#include <unistd.h>

iMonitor* gBatchMonitor = nullptr;

namespace {
constexpr const char* Heads = "Tick\tBox\tText\n";

std::string RowText(const PMLine& Line)
{
    return FormatNum(static_cast<double>(Line.Tick), "0") + "\t" + FormatNum(Line.Box, "0") + "\t" + Line.Text + "\n";
}

void ReportTick(std::size_t Tick, const std::string& What)
{
    MsgBox("Tick " + FormatNum(static_cast<double>(Tick), "0") + ": " + What, TitleWarning);
}

// The rows that a file of replies gives. What cannot be read is reported with its tick and left out.
std::string PlayReplies(const std::vector<PlayedReply>& Replies)
{
    std::string Table = Heads;
    cPMLines Changes;
    for (std::size_t Tick = 0; Tick < Replies.size(); ++Tick) {
        const PlayedReply& Reply = Replies[Tick];
        if (Reply.Kind == PlayedReply::NotHex) ReportTick(Tick, "the line is not hexadecimal, and was skipped");
        if (Reply.Kind != PlayedReply::Frame) continue;
        std::string Fault;
        const std::optional<PMFigures> Figures = DecodePoll(Reply.Bytes, Fault);
        if (!Figures) {
            ReportTick(Tick, "the answer was left out: " + Fault);
            continue;
        }
        std::vector<PMLine> Lines;
        Changes.Take(*Figures, static_cast<int64_t>(Tick), Lines);
        for (const PMLine& Line : Lines)
            Table += RowText(Line);
    }
    return Table;
}

// Polls until the time is over or a signal comes, and prints rows as they come.
class Poller
{
public:
    explicit Poller(double Time) : Seconds(Time), Poll(gBatchMonitor), Signals(WatchEndSignals())
    {
        std::signal(SIGPIPE, SIG_IGN); // whoever read the rows may go
    }
    ~Poller() { close(Signals); }
    Poller(const Poller&) = delete;
    Poller& operator=(const Poller&) = delete;

    bool Run()
    {
        Poll.Discover();
        for (const std::string& Report : Poll.TakeReports())
            MsgBox(Report, TitleError);
        const std::vector<PMLine> Outcome = Poll.TakeLines();
        if (Poll.Now().State != ePMState::Open) {
            for (const PMLine& Line : Outcome)
                MsgBox(Line.Text, TitleError);
            return false;
        }
        Loop.Watch(Signals, POLLIN, [this](short) { Loop.Quit(); });
        const int64_t Begin = Loop.Milliseconds();
        Loop.StartRepeating(PollMs, [this, Begin] { Tick(Begin); });
        Poll.SetPolling(true, Begin);
        std::cout << Heads << std::flush;
        Loop.Run();
        return true;
    }

private:
    void Tick(int64_t Begin)
    {
        const int64_t Now = Loop.Milliseconds();
        Poll.Tick(Now);
        for (const PMLine& Line : Poll.TakeLines())
            std::cout << RowText(Line) << std::flush;
        for (const std::string& Report : Poll.TakeReports())
            MsgBox(Report, TitleWarning);
        const bool IsOver = Seconds > 0 && static_cast<double>(Now - Begin) >= Seconds * 1000;
        if (IsOver || !std::cout) Loop.Quit();
    }

    double Seconds; // 0: until a signal
    cPMPoll Poll;
    sEventLoop Loop;
    int Signals;
};
} // namespace

std::string MonitorObjection(const Args& Line)
{
    if (Line.Has("--usb")) {
        if (!Line.Files.empty()) return "--usb takes no files";
        return Line.Real("--seconds", 0) < 0 ? "--seconds cannot be negative" : "";
    }
    if (Line.Has("--seconds")) return "--seconds goes with --usb";
    return Line.Files.size() == 2 ? "" : "REPLIES and OUT are wanted, or --usb";
}

bool DoMonitor(const Args& Line)
{
    if (Line.Has("--usb")) return Poller(Line.Real("--seconds", 0)).Run();
    const std::optional<std::string> Text = ReadWhole(Line.Files[0]);
    if (!Text) return FileFailed(CantRead, Line.Files[0], TitleError);
    return SaveText(Line.Files[1], PlayReplies(ParseReplies(*Text)));
}
