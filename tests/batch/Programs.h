// The programs as their users call them: processes in a folder of demonstration sessions.
#pragma once

#include "support/Case.h"

#include <cstdlib>
#include <sys/wait.h>

/// What a program has answered; 128 when a signal ended it.
struct Outcome
{
    int Exit;
    std::string Out, Err;
};

class ProgramFolder : public TempFolder
{
public:
    explicit ProgramFolder(std::initializer_list<const char*> Sessions = {"single.txt"})
    {
        for (const char* Name : Sessions)
            std::filesystem::copy_file(std::string(SOURCE_FOLDER "/demo/") + Name, Path(Name));
    }

    /// Runs a program with its arguments in the folder, behind commands of the shell.
    Outcome Run(const std::string& Line, const std::string& Before = "") const
    {
        const std::string Command = Before + "cd '" + Path("") + "'; '" PROGRAM_FOLDER "'/" + Line;
        const int Status = std::system((Command + " >out.log 2>err.log").c_str());
        return {WIFEXITED(Status) ? WEXITSTATUS(Status) : 128, Bytes("out.log"), Bytes("err.log")};
    }

    Outcome Batch(const std::string& Line) const { return Run("skarvelin-batch " + Line); }

    std::string Bytes(const std::string& Name) const { return ReadWhole(Path(Name)).value_or("(none)"); }
};
