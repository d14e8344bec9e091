// Each command as a row of exchanges.
#include "acquisition/cLoggerSetUp.h"

#include "acquisition/cOwnLink.h"
#include "acquisition/mComFast.h"
#include "acquisition/mSlaveSetUp.h"
#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int Patience = 1000;    // ms for an answer to a question
constexpr int MostUnanswered = 2; // questions, until a logger that has never answered is given up
constexpr int RestartMs = 1000;   // a logger that was reset takes before it can be set up again

// The speed of the line that the link is on.
std::string SpeedText()
{
    const std::string Line = LineOfModel();
    return Line.substr(0, Line.find(','));
}

// A session without samples is going to have those of the new rate.
void FollowRate()
{
    if (gCurFile.empty() || gFile.Desc.UBound() > 0) return;
    gFile.TimeStep = SafeDiv(1, gDataFreq);
    WriteSession();
}
} // namespace

cLoggerSetUp::cLoggerSetUp()
{
    Exchange.emplace();
    Exchange->OnChange = [this] {
        // Devices are listed as they are heard of.
        if (Sought && Exchange->IsBusy() && !Exchange->Log().empty())
            Sought->TakeFound(Exchange->Log().back().Received);
        if (OnChange) OnChange();
    };
}

cLoggerSetUp::~cLoggerSetUp()
{
    OnChange = nullptr;
    Leave();
}

void cLoggerSetUp::ReadMaster()
{
    Unanswered = 0;
    IsOpen = OpenLink();
    if (!IsOpen) {
        if (OnChange) OnChange();
        return;
    }
    for (const LoggerQuery& Query : QueriesToAsk())
        AskFor(Query.Key);
}

void cLoggerSetUp::Run()
{
    if (!Exchange) return;
    Exchange->Cancel();
    SendText(ConnectBLECommand + std::string("\r"));
    End();
}

void cLoggerSetUp::Leave()
{
    if (!Exchange) return;
    Exchange->Cancel();
    End();
}

void cLoggerSetUp::End()
{
    Exchange.reset();
    EndSetUp();
}

void cLoggerSetUp::Apply(eLoggerSetting Which, int Choice)
{
    const bool IsKnownOther = !Value(SettingOf(Which).Key).empty() && Has(Which) != Choice;
    const bool IsOfDevices = Which == SettingBT || Which == SettingBLE;
    if (IsOfDevices || !IsStored(Which, Choice) || IsKnownOther) {
        Set(CommandFor(Which, Choice), SettingOf(Which).Key);
        if (!IsStored(Which, Choice)) StoreChoice(Which, Choice);
        if (Which == SettingFreq) FollowRate();
    }
    SaveSetting(SettingOf(Which).Store);
    AskFor(SettingOf(Which).Key);
}

int cLoggerSetUp::Has(eLoggerSetting Which) const
{
    const std::string Text = Value(SettingOf(Which).Key);
    return Text.empty() ? -1 : ChoiceOf(Which, Text);
}

std::string cLoggerSetUp::HasText(eLoggerSetting Which) const
{
    const int Choice = Has(Which);
    return Choice < 0 ? Value(SettingOf(Which).Key)
                      : SettingOf(Which).Choices[static_cast<std::size_t>(Choice)].Caption;
}

std::string cLoggerSetUp::Value(const std::string& Key) const
{
    const auto Found = Values.find(Key);
    return Found == Values.end() ? "" : Found->second;
}

void cLoggerSetUp::SetSlave(std::size_t Kind, bool HasExtras)
{
    if (gCurFile.empty())
        return MsgBox("The number of channels is kept in the session: open one first.", TitleInformation);
    if (!SetSlaves(Kind, HasExtras)) return;
    if (gFile.ChanCnt > LastDataChan)
        MsgBox("The logger will send " + FormatNum(gFile.ChanCnt, "0") + " channels. Those above " +
                   FormatNum(LastDataChan, "0") + " are kept in recordings, but neither shown nor processed.",
               TitleInformation);
    Set("#CHMSK=" + ChannelMask(Kind, HasExtras), "CHMSK");
    AskFor("CHMSK");
}

void cLoggerSetUp::Find(cDeviceTable& Table)
{
    Exchange->ReadWaiting();
    const std::string Command = Table.Kind().Find;
    LoggerRequest Request{Command, WaitFor(Command)};
    Request.Then = [this, &Table](const LoggerExchange& Done) {
        Table.TakeFound(Done.Received);
        Sought = nullptr;
    };
    Sought = &Table;
    Ask(std::move(Request));
}

void cLoggerSetUp::Read(cDeviceTable& Table)
{
    AskFor(Table.Kind().TableKey);
}

void cLoggerSetUp::Register(cDeviceTable& Table)
{
    for (const std::string& Command : Table.Commands())
        Set(Command, Table.Kind().TableKey);
    Read(Table);
}

void cLoggerSetUp::SetClock()
{
    Set(ClockCommand(gHost.Clock->Now()), "UTC");
    AskFor("UTC");
}

void cLoggerSetUp::ZeroAcc()
{
    for (const char* Command : ZeroAccCommands())
        Set(Command, "");
    AskFor("GYROCFG");
}

void cLoggerSetUp::Save()
{
    LoggerRequest Request{SaveCommand, Patience};
    Request.Key = std::string(SaveCommand).substr(1);
    Request.Then = [this](const LoggerExchange& Done) { Unsaved = Unsaved && Done.Received.empty(); };
    Ask(std::move(Request));
}

// A logger that was reset streams again: it is put in set-up mode once more and read.
void cLoggerSetUp::Reset()
{
    LoggerRequest Request{ResetCommand, RestartMs};
    Request.NeedsAnswer = false;
    Request.Then = [this](const LoggerExchange&) {
        Values.clear();
        Unsaved = false;
        WirelessTable.Forget();
        SensorTable.Forget();
        Exchange->LeaveSetUp();
        ReadMaster();
    };
    Ask(std::move(Request));
}

void cLoggerSetUp::Send(const std::string& Command)
{
    Ask({Command, WaitFor(Command)});
}

void cLoggerSetUp::ReadResponse()
{
    Answer.clear();
    for (const std::string& Line : Exchange->ReadWaiting())
        Answer += Line + "\n";
    if (OnChange) OnChange();
}

std::string cLoggerSetUp::State() const
{
    const bool IsTCP = gConnection == ConnectionTCP;
    if (!IsOpen && gOwnLink)
        return gOwnLink->Owner() + " has the link to the logger: close it first, then Read Master.";
    if (!IsOpen) return "No serial port can be opened: is the logger plugged in, or has another program its port?";
    if (gLinkWatch.State() != cLinkWatch::eState::Open) return gLinkWatch.Words(gHost.Clock->Milliseconds());
    if (Exchange->HasAnswered()) {
        const std::string Serial = Value("SN");
        return "The logger" + (Serial.empty() ? "" : " " + Serial) +
               " is in set-up mode and sends no frames until it runs." +
               (Unsaved ? " What was set is lost at its next reset unless it is saved to the master." : "");
    }
    if (Exchange->IsBusy()) return "The logger is asked...";
    if (!Exchange->IsSetUp()) return "The link is open again: Read Master asks the logger.";
    return std::string("The logger does not answer. Is it switched on and ") +
           (IsTCP ? "in reach?" : "connected, and does its port run at " + SpeedText() + " baud?") +
           " Read Master asks again; at the end it is asked to run all the same.";
}

bool cLoggerSetUp::HasTrouble() const
{
    const bool IsLinked = IsOpen && gLinkWatch.State() == cLinkWatch::eState::Open;
    return !IsLinked || (Exchange->IsSetUp() && !Exchange->HasAnswered() && !Exchange->IsBusy());
}

void cLoggerSetUp::Ask(LoggerRequest Request)
{
    Request.Then = [this, Further = std::move(Request.Then)](const LoggerExchange& Done) {
        Note(Done);
        if (Further) Further(Done);
        GiveUpOnSilence();
    };
    Exchange->Ask(std::move(Request));
}

// A command that sets something; many loggers say nothing to it, and the question behind it shows what they have then.
void cLoggerSetUp::Set(const std::string& Command, const std::string& Key)
{
    LoggerRequest Request{Command};
    Request.NeedsAnswer = false;
    Request.Key = Key;
    Request.Then = [this](const LoggerExchange&) { Unsaved = true; };
    Ask(std::move(Request));
}

void cLoggerSetUp::AskFor(std::string_view Key)
{
    const auto Queries = QueriesToAsk();
    const auto Found =
        std::find_if(Queries.begin(), Queries.end(), [&](const LoggerQuery& Each) { return Each.Key == Key; });
    if (Found == Queries.end()) return;
    LoggerRequest Request = QueryRequest(*Found, Found->IsTable ? LoggerRequest{}.Wait : Patience);
    for (cDeviceTable* Table : {&WirelessTable, &SensorTable})
        if (Key == Table->Kind().TableKey)
            Request.Then = [Table](const LoggerExchange& Done) { Table->TakeTable(Done.Received); };
    Ask(std::move(Request));
}

// Takes the values that an answer gives.
void cLoggerSetUp::Note(const LoggerExchange& Done)
{
    Answer.clear();
    for (const std::string& Line : Done.Received) {
        Answer += Line + "\n";
        const AnswerParts Parts = SplitAnswer(Line);
        if (!Parts.Key.empty()) Values[Parts.Key] = Parts.Value;
    }
    Unanswered = Done.Received.empty() ? Unanswered + 1 : 0;
}

void cLoggerSetUp::GiveUpOnSilence()
{
    if (Unanswered >= MostUnanswered && !Exchange->HasAnswered())
        Exchange->Cancel("not sent: the logger does not answer");
}
