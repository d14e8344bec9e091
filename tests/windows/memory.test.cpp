// The desktop program when the machine has too little memory left.
#include "ShellState.h"

#include <QProcess>

namespace {
#ifdef __SANITIZE_ADDRESS__
constexpr bool HasLimits = false; // its own tables need more than any limit
#else
constexpr bool HasLimits = true;
#endif
} // namespace

TEST_CASE("a recording for which there is no memory is reported, and the program goes on with its session" *
          doctest::skip(!HasLimits))
{
    const TempFolder Folder;
    std::filesystem::copy_file(SOURCE_FOLDER "/demo/single.txt", Folder.Path("single.txt"));
    const QString Raw = Shown(Folder.Path("a.qvn")), List = Shown(Folder.Path("list.txt"));
    REQUIRE(QProcess::execute(PROGRAM_FOLDER "/skarvelin-sim",
                              {"--file", Raw, Shown(Folder.Path("single.txt")), "--strokes=700"}) == 0);
    const std::string Ini = "Current File=" + Folder.Path("single.txt") + "\n";
    for (const char* Limit : {"memory:3", "memory:8", "memory:4000"}) {
        CAPTURE(std::string(Limit));
        REQUIRE(SaveWhole(Folder.Path("Skarvelin.ini"), Ini));
        std::filesystem::remove(Folder.Path("list.txt"));
        QProcess Program;
        Program.start(PROGRAM_FOLDER "/skarvelin-demo",
                      {Shown(Folder.Path("")), "--file", Raw, "--controls", List, Limit, "mnuViewRaw"});
        REQUIRE(Program.waitForFinished(60000));
        CHECK(Program.exitStatus() == QProcess::NormalExit);
        CHECK(Program.exitCode() == 0);
        const std::string Shows = ReadWhole(Folder.Path("list.txt")).value_or("");
        const bool IsRoomy = Limit == std::string("memory:4000");
        CHECK((Shows.find("there is not enough memory") == std::string::npos) == IsRoomy);
        CHECK((Shows.find("the first 32201") != std::string::npos) == IsRoomy); // the question behind the reading
        CHECK(Shows.find("single - Skarvelin") != std::string::npos);
    }
}
