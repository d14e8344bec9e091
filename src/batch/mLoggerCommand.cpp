// The logger's set-up without a window: commands as given, or all questions as a table.
#include "acquisition/cLoggerTalk.h"
#include "acquisition/mComFast.h"
#include "acquisition/mLoggerCommands.h"
#include "base/mNumText.h"
#include "batch/mBatchLink.h"
#include "batch/mCommands.h"
#include "platform/mHost.h"

#include <iostream>
#include <optional>
#include <string>

namespace {
constexpr int LookMs = 20;
constexpr int FarewellMs = 100; // for "#RUN" to leave
constexpr double LongestWait = 3600;

class SetUp
{
public:
    explicit SetUp(const Args& InitLine) : Line(InitLine) {}

    /// Asks all that the line says. False when a failure was reported.
    bool Run();

private:
    int Wait(const std::string& Command) const;
    void AskCommands();
    void AskAll();
    void AddRows(const LoggerQuery& Query, const LoggerExchange& Done);
    void PrintNew();
    bool Report() const;

    const Args& Line;
    cBatchLink Link;
    std::optional<cLoggerTalk> Talk;
    std::string Table;       // of all questions
    std::string Silent;      // those without an answer
    std::size_t Printed = 0; // exchanges
    bool IsAnswered = false;
};

bool SetUp::Run()
{
    if (!OpenLink()) return ReportNoPort();
    Talk.emplace();
    Link.OnSignal = [this] { Talk->Cancel(); };
    Line.Has("--read") ? AskAll() : AskCommands();
    while (Talk->IsBusy()) {
        Link.Loop.Wait(LookMs);
        UpdateProgress(Talk->Percent());
    }
    if (!Line.Has("--read")) PrintNew();
    const bool IsDone = Report();
    Link.OnSignal = nullptr;
    Talk.reset();
    // A logger that does not answer may have heard all the same.
    if (!Line.Has("--stay") || !IsAnswered) SendRun();
    Link.Loop.Wait(FarewellMs);
    DropLink();
    return IsDone;
}

int SetUp::Wait(const std::string& Command) const
{
    constexpr double MsPerSecond = 1000;
    const double Usual = WaitFor(Command) / MsPerSecond;
    return static_cast<int>(RoundHalfEven(Line.Real("--wait", Usual) * MsPerSecond));
}

void SetUp::AskCommands()
{
    std::vector<std::string> Commands = Line.Files;
    Commands[0] = SetUpCommand; // in the session's place
    for (const std::string& Command : Commands) {
        LoggerRequest Request{Command, Wait(Command)};
        Request.Then = [this](const LoggerExchange& Done) {
            IsAnswered = IsAnswered || !Done.Received.empty();
            PrintNew();
        };
        Talk->Ask(std::move(Request));
    }
}

// What has come since the last time, at the end that of an exchange that was broken off, too.
void SetUp::PrintNew()
{
    for (; Printed < Talk->Log().size(); ++Printed)
        for (const std::string& Text : Talk->Log()[Printed].Received)
            std::cout << Text << std::endl;
}

void SetUp::AskAll()
{
    LoggerRequest First = SetUpRequest();
    First.Wait = Wait(First.Command);
    First.Then = [this](const LoggerExchange& Done) { IsAnswered = !Done.Received.empty(); };
    Talk->Ask(std::move(First));
    for (const LoggerQuery& Query : QueriesToAsk()) {
        LoggerRequest Request = QueryRequest(Query, 0);
        Request.Wait = Wait(Request.Command);
        Request.Then = [this, Query](const LoggerExchange& Done) { AddRows(Query, Done); };
        Talk->Ask(std::move(Request));
    }
}

void SetUp::AddRows(const LoggerQuery& Query, const LoggerExchange& Done)
{
    IsAnswered = IsAnswered || !Done.Received.empty();
    if (Done.Received.empty()) {
        Silent += " " + Done.Sent;
        Table += std::string(Query.Key) + "\t\n";
    }
    for (const std::string& Text : Done.Received) {
        const AnswerParts Parts = SplitAnswer(Text);
        Table += std::string(Query.Key) + "\t" + (Parts.Key == Query.Key ? Parts.Value : Text) + "\n";
    }
}

bool SetUp::Report() const
{
    const std::string& Failure = Talk->Failure();
    if (gLinkWatch.State() != cLinkWatch::eState::Open) {
        MsgBox("The logger cannot be set up: " + Failure, TitleError);
        return false;
    }
    if (!IsAnswered) {
        MsgBox("The logger does not answer. It was asked to run, as it may have heard.", TitleError);
        return false;
    }
    if (!Table.empty()) std::cout << "Setting\tAnswer\n" << Table << std::flush;
    if (!Silent.empty()) MsgBox("No answer to:" + Silent, TitleInformation);
    if (Failure.empty() || Failure == NoAnswerText) return true;
    MsgBox("The set-up was not finished: " + Failure, TitleError);
    return false;
}
} // namespace

std::string LoggerObjection(const Args& Line)
{
    const bool HasCommands = Line.Files.size() > 1;
    if (Line.Has("--read") == HasCommands)
        return HasCommands ? "--read takes no commands" : "no command given, such as \"#MODE?\", nor --read";
    for (std::size_t i = 1; i < Line.Files.size(); ++i)
        if (!IsLoggerCommand(Line.Files[i])) return "a command begins with #, not \"" + Line.Files[i] + "\"";
    const double Wait = Line.Real("--wait", 1);
    if (!(Wait > 0 && Wait <= LongestWait)) return "--wait takes seconds, more than 0 and at most 3600";
    return LinkObjection(Line);
}

bool DoLogger(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    SelectLink(Line);
    return SetUp(Line).Run();
}
