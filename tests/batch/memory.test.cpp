// The batch program when the machine has too little memory left.
#include "support/Case.h"

#include <cstdlib>
#include <sys/wait.h>

namespace {
#ifdef __SANITIZE_ADDRESS__
constexpr bool HasLimits = false; // its own tables need more than any limit
#else
constexpr bool HasLimits = true;
#endif

struct Machine : TempFolder
{
    std::string Reported;

    // Runs the program with that many KB of address space; its exit code, 128 and more when a signal ended it.
    int Run(int Kilobytes, const std::string& Line)
    {
        const std::string Command = "ulimit -v " + FormatNum(Kilobytes, "0") + "; cd '" + Path("") +
                                    "'; '" PROGRAM_FOLDER "/skarvelin-batch' " + Line + " >out.log 2>err.log";
        const int Status = std::system(Command.c_str());
        Reported = ReadWhole(Path("err.log")).value_or("");
        return WIFEXITED(Status) ? WEXITSTATUS(Status) : 128;
    }
};
} // namespace

TEST_CASE_FIXTURE(Machine,
                  "memory that cannot be had is one plain message and exit code 1, and files stay as they were" *
                      doctest::skip(!HasLimits))
{
    std::filesystem::copy_file(SOURCE_FOLDER "/demo/single.txt", Path("single.txt"));
    REQUIRE(std::system(("'" PROGRAM_FOLDER "/skarvelin-sim' --file '" + Path("a.qvn") + "' '" + Path("single.txt") +
                         "' --strokes=700 >/dev/null")
                            .c_str()) == 0);
    const auto Session = ReadWhole(Path("single.txt"));
    int Least = 1 << 12, Enough = 1 << 21; // KB
    REQUIRE(Run(Enough, "--version") == 0);
    while (Enough - Least > 64) {
        const int Middle = (Least + Enough) / 2;
        (Run(Middle, "--version") == 0 ? Enough : Least) = Middle;
    }
    int Failures = 0, Exit = 1;
    for (int Size = Enough; Exit != 0 && Size < Enough + (1 << 17); Size += 1 << 10) {
        Exit = Run(Size, "process single.txt a.qvn");
        CAPTURE(Size);
        CAPTURE(Reported);
        REQUIRE((Exit == 0 || Exit == 1));
        if (Exit == 0) break;
        ++Failures;
        CHECK(Reported.find("there is not enough memory") != std::string::npos);
        CHECK(ReadWhole(Path("single.txt")) == Session);
    }
    CHECK(Exit == 0);
    CHECK(Failures > 3);
}
