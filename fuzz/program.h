// The program around a fuzz target: a host without a window, and a folder that goes with the process.
#pragma once

#include "platform/mHost.h"
#include "platform/plain/sDialogs.h"
#include "platform/plain/sSettings.h"
#include "platform/plain/sStatus.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

/// A folder of the process, removed when it ends.
struct FuzzProgram
{
    FuzzProgram()
    {
        gHost = {};
        gHost.Dialogs = &Dialogs;
        gHost.Status = &Status;
        gHost.Settings = &Settings;
        std::filesystem::create_directories(Folder);
    }
    ~FuzzProgram() { std::filesystem::remove_all(Folder); }

    sStatus Status{false};
    sDialogs Dialogs;
    sSettings Settings;
    std::string Folder = Base() + "/skarvelin-fuzz-" + std::to_string(getpid()) + "/";

private:
    // In memory where the system allows it: a disk would take nine tenths of the time.
    static std::string Base()
    {
        constexpr const char* Memory = "/dev/shm";
        return access(Memory, W_OK) == 0 ? Memory : std::filesystem::temp_directory_path().string();
    }
};

/// The target's folder, with the separator behind it. The first call fills gHost.
inline const std::string& FuzzFolder()
{
    static FuzzProgram Program;
    return Program.Folder;
}
