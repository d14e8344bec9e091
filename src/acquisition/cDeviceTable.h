// Devices of one kind, wireless or BLE: those that a scan has found, and the table in which the logger keeps eight.
#pragma once

#include "acquisition/mLoggerCommands.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

/// What differs between the two kinds of devices.
struct DeviceKind
{
    const char* Title;      // of their tab
    const char* Name;       // end of the names of their controls
    const char* FindKey;    // of a scan's answers
    const char* Find;       // the command for a scan
    const char* TableKey;   // "KEY?" reads the table, "KEY=" writes a row
    eLoggerSetting Setting; // how the logger uses them
    const char* NameBegins; // answers are address-name, and the name begins so; empty: they are the device
};
inline constexpr DeviceKind WirelessKind{"BlueTooth", "BT", "WLDEVFND", "#WLDEVFND=10", "WLDEVCFG", SettingBT, ""};
inline constexpr DeviceKind BLEKind{"BLE", "BLE", "BLSCAN", "#BLSCAN=1", "BLDEVCFG", SettingBLE, "EmPower"};

struct LoggerDevice
{
    std::string Text; // address
    bool IsOn = true;

    bool operator==(const LoggerDevice&) const = default;
};

class cDeviceTable
{
public:
    static constexpr std::size_t MaxRows = 8;

    explicit cDeviceTable(const DeviceKind& InitKind) : Shape(InitKind) {}

    const DeviceKind& Kind() const { return Shape; }
    const std::vector<std::string>& Found() const { return Seen; }

    /// The table as it is to be sent.
    const std::vector<LoggerDevice>& Registered() const { return Rows; }

    /// Whether the logger's table was read.
    bool IsRead() const { return IsKnown; }

    /// Whether the logger has that row as it is to be sent; both may have none.
    bool IsSame(std::size_t Row) const;

    /// Rows that are not the same.
    int Differences() const;

    /// Takes lines that answered a scan, others are passed over: each device is listed once.
    void TakeFound(const std::vector<std::string>& Lines);

    /// Takes the lines that answered the reading of the table, which becomes the one to be sent.
    void TakeTable(const std::vector<std::string>& Lines);

    /// Forgets what the logger has.
    void Forget() { IsKnown = false; }

    /// Registers a device that was found, at the end. False when the table is full or has it already.
    bool Select(std::size_t Device);

    /// Takes a row out; those behind it move up.
    void Delete(std::size_t Row);

    /// Exchanges a row with the one ahead of it (Step -1) or behind it (1). False at either end.
    bool Move(std::size_t Row, int Step);

    void SetOn(std::size_t Row, bool IsOn) { Rows.at(Row).IsOn = IsOn; }

    /// What registers the table. A row that the logger has behind its end is switched off: there is no command that
    /// empties one.
    std::vector<std::string> Commands() const;

private:
    std::string RowCommand(std::size_t Row, const LoggerDevice& Device) const;

    DeviceKind Shape;
    std::vector<std::string> Seen;
    std::vector<LoggerDevice> Rows;
    std::array<std::optional<LoggerDevice>, MaxRows> Has; // the logger
    bool IsKnown = false;
};
