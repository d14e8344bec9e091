// The logger's set-up commands as tables: settings with their values, queries, device tables, slaves, single commands.
#pragma once

#include "acquisition/cLoggerTalk.h"
#include "platform/iClock.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

inline constexpr const char* ConnectBLECommand = "#BLCON";
inline constexpr const char* SaveCommand = "#SAVE";
inline constexpr const char* ResetCommand = "#RST";

/// Settings with a few values each.
enum eLoggerSetting
{
    SettingFreq,
    SettingBaud,
    SettingGPS,
    SettingBT,
    SettingBLE,
    LoggerSettingCnt
};

/// A value of a setting: the option button that stands for it, what is sent, and what is stored.
struct LoggerChoice
{
    const char* Control;
    const char* Caption;
    const char* Value; // behind "#KEY="
    int32_t Stored;    // in the global of the setting
    int32_t Compared;  // with that global, to know whether it is in use
};

struct LoggerSetting
{
    const char* Key;    // "MODE" of "#MODE?"
    const char* Store;  // key of the global in the settings store
    std::size_t Fields; // so many of the value's fields make the difference
    std::span<const LoggerChoice> Choices;
};

const LoggerSetting& SettingOf(eLoggerSetting Which);

/// What is sent to set a choice: the port's speed with the number for its RTS line behind it.
std::string CommandFor(eLoggerSetting Which, int Choice);

/// The choice with that value, which may have blanks around its fields; -1 when it is another.
int ChoiceOf(eLoggerSetting Which, const std::string& Value);

/// The choice that the setting's global stands for; -1 for another number.
int StoredChoice(eLoggerSetting Which);

/// Whether the choice is the one that the global is compared with: if not it must be sent.
bool IsStored(eLoggerSetting Which, int Choice);

/// Puts a choice into the setting's global and the store.
void StoreChoice(eLoggerSetting Which, int Choice);

/// A question to the logger.
struct LoggerQuery
{
    const char* Key;
    const char* Caption;
    bool IsTable = false;      // answered by a line a row, which take their time
    bool NeedsKeyChan = false; // is asked in sessions with a key channel only
};

/// The questions of the set-up in the order in which they are asked.
std::vector<LoggerQuery> QueriesToAsk();

/// "#KEY?" with the time that its answer takes. Answers to tables are waited for to the end.
LoggerRequest QueryRequest(const LoggerQuery& Query, int Patience);

/// "#SETUP".
LoggerRequest SetUpRequest();

/// Whether Text can be sent as a command: "#" and plain printable characters.
bool IsLoggerCommand(const std::string& Text);

/// How long (ms) answers to a command may take: scans for devices take seconds.
int WaitFor(const std::string& Command);

/// The slaves that the logger can have: their caption, channels, and letter in the mask of channels.
struct SlaveKind
{
    const char* Caption;
    int16_t Chans;
    char First;  // letter of the first slave
    char Letter; // of all others
    bool IsSigned;
};
std::span<const SlaveKind> SlaveKinds();

/// The mask of channels for that kind. HasExtras: each slave sends two more channels, as for heart rates.
std::string ChannelMask(std::size_t Kind, bool HasExtras);

/// The kind of a session's slaves; nothing for a number of channels that none has.
std::optional<std::size_t> SlaveKindOf(int16_t SlaveChans, bool IsSigned);

/// What a mask of channels says, as "8 normal": from its slaves; empty when it is none of the known ones.
std::string MaskWords(const std::string& Mask);

/// "#UTC=" with that time.
std::string ClockCommand(const LocalTime& Now);

/// Commands for diagnosis and for a logger's first set-up.
struct DiagnosticCommand
{
    const char* Command;
    const char* Meaning;
    bool NeedsKeyChan = false;
};
std::span<const DiagnosticCommand> DiagnosticCommands();

// Sent together to zero accelerometer and gyroscope.
std::span<const char* const> ZeroAccCommands();
