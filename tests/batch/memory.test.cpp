// The batch program when the machine has too little memory left.
#include "Programs.h"

namespace {
#ifdef __SANITIZE_ADDRESS__
constexpr bool HasLimits = false; // its own tables need more than any limit
#else
constexpr bool HasLimits = true;
#endif

struct Machine : ProgramFolder
{
    std::string Reported;

    // Runs the program with that many KB of address space; its exit code, 128 and more when a signal ended it.
    int Run(int Kilobytes, const std::string& Line)
    {
        const Outcome Done =
            ProgramFolder::Run("skarvelin-batch " + Line, "ulimit -v " + FormatNum(Kilobytes, "0") + "; ");
        Reported = Done.Err;
        return Done.Exit;
    }
};
} // namespace

TEST_CASE_FIXTURE(Machine,
                  "memory that cannot be had is one plain message and exit code 1, and files stay as they were" *
                      doctest::skip(!HasLimits))
{
    REQUIRE(ProgramFolder::Run("skarvelin-sim --file a.qvn single.txt --strokes=700").Exit == 0);
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
