// The set-up of the logger as the dialog works on it: what the logger has, what is to be sent, and each command's
// steps.
#pragma once

#include "acquisition/cDeviceTable.h"
#include "acquisition/cLoggerTalk.h"
#include "acquisition/mLoggerCommands.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// From the first command on the logger is in set-up mode; it is asked to stream again when the object is gone at the
/// latest. All exchanges run in the background: OnChange says when something has come.
class cLoggerSetUp
{
public:
    cLoggerSetUp();
    ~cLoggerSetUp();
    cLoggerSetUp(const cLoggerSetUp&) = delete;
    cLoggerSetUp& operator=(const cLoggerSetUp&) = delete;

    /// Reads all that the logger has. The link is opened and the logger put in set-up mode ahead of it where they are
    /// not.
    void ReadMaster();

    /// Connects the BLE sensors and lets the logger stream: the set-up is over.
    void Run();

    /// Lets the logger stream: the set-up is over.
    void Leave();

    /// Sends a choice, that of a frequency, a speed or GPS only when it is not the stored one or not what the logger
    /// has, stores it, and reads what the logger has then.
    void Apply(eLoggerSetting Which, int Choice);

    /// The choice that the logger has; -1 when it has none of them or was not read.
    int Has(eLoggerSetting Which) const;

    /// What the logger has, in words where it is one of the choices; empty when it was not read.
    std::string HasText(eLoggerSetting Which) const;

    /// The value of a key that the logger gave last; empty when it gave none.
    std::string Value(const std::string& Key) const;

    /// Sets the slaves of session and logger. Nothing is sent when the session cannot be saved (reported to the user).
    void SetSlave(std::size_t Kind, bool HasExtras);

    void Find(cDeviceTable& Table);
    void Read(cDeviceTable& Table);
    void Register(cDeviceTable& Table);

    void SetClock();
    void ZeroAcc();
    void Save();
    void Reset();

    /// Sends one command and waits for its answers.
    void Send(const std::string& Command);

    /// Takes what has come since the last exchange as the response.
    void ReadResponse();

    /// What came last in answer to a command, a line each.
    const std::string& Response() const { return Answer; }

    /// How the logger is, in a sentence.
    std::string State() const;

    /// Whether something was set that a reset of the logger would drop.
    bool IsUnsaved() const { return Unsaved; }

    /// Whether the logger cannot be set up as it is: there is no link, or it does not answer.
    bool HasTrouble() const;

    cLoggerTalk& Talk() { return *Exchange; }
    const cLoggerTalk& Talk() const { return *Exchange; }
    cDeviceTable& Wireless() { return WirelessTable; }
    cDeviceTable& Sensors() { return SensorTable; }

    std::function<void()> OnChange;

private:
    using Lines = std::vector<std::string>;

    void Ask(LoggerRequest Request);
    void AskFor(std::string_view Key);
    void Set(const std::string& Command, const std::string& Key);
    void Note(const LoggerExchange& Done);
    void GiveUpOnSilence();
    void End();

    std::optional<cLoggerTalk> Exchange;
    cDeviceTable WirelessTable{WirelessKind};
    cDeviceTable SensorTable{BLEKind};
    cDeviceTable* Sought = nullptr;            // whose devices are looked for
    std::map<std::string, std::string> Values; // by key, as the logger gave them
    std::string Answer;
    bool IsOpen = false; // the link could be opened
    bool Unsaved = false;
    int Unanswered = 0; // questions in a row
};
