// The program around a fuzz target: a host that says nothing, the settings' defaults, and a folder for those that need
// files.
#pragma once

#include "core/mSettings.h"
#include "platform/mHost.h"
#include "platform/plain/sSettings.h"
#include "platform/plain/sStatus.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <unistd.h>

/// Messages are dropped, since printing them would take most of the time; questions are answered Yes.
class SilentDialogs : public iDialogs
{
public:
    eAnswer MsgBox(const std::string&, const std::string&, eButtons Buttons) override
    {
        return Buttons == eButtons::Ok ? eAnswer::Ok : eAnswer::Yes;
    }
    std::optional<std::string> InputBox(const std::string&, const std::string&, const std::string&) override
    {
        return {};
    }
    std::optional<std::string> ExecComDlg(const std::string&, const std::string&, eFileMode,
                                          const std::string&) override
    {
        return {};
    }
};

struct FuzzProgram
{
    FuzzProgram()
    {
        gHost = {};
        gHost.Dialogs = &Dialogs;
        gHost.Status = &Status;
        gHost.Settings = &Settings;
        LoadSettings();
    }

    sStatus Status{false};
    SilentDialogs Dialogs;
    sSettings Settings;
};

/// Fills gHost, once.
inline void StartProgram()
{
    static FuzzProgram Program;
}

/// A folder of the process, with the separator behind it, removed when the process ends. In memory where the system
/// allows it: a disk would take nine tenths of the time.
inline const std::string& FuzzFolder()
{
    struct Folder
    {
        Folder() { std::filesystem::create_directories(Path); }
        ~Folder() { std::filesystem::remove_all(Path); }

        std::string Path = (access("/dev/shm", W_OK) == 0 ? std::string("/dev/shm")
                                                          : std::filesystem::temp_directory_path().string()) +
                           "/skarvelin-fuzz-" + std::to_string(getpid()) + "/";
    };
    static const Folder Whole;
    return Whole.Path;
}

/// The input as text.
inline std::string_view AsText(const uint8_t* Data, std::size_t Size)
{
    return {reinterpret_cast<const char*>(Data), Size};
}
