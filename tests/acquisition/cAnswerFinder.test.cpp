// Answers among frames, torn frames and single bytes.
#include "acquisition/cAnswerFinder.h"

#include "support/Case.h"
#include "support/ScriptedLink.h"

#include <random>

namespace {
void Add(cAnswerFinder& Finder, const std::string& Bytes)
{
    Finder.Add({reinterpret_cast<const uint8_t*>(Bytes.data()), Bytes.size()});
}

// The lines found when Bytes come at once, or one by one with a calm behind each where IsSlow.
Texts Lines(const std::string& Bytes, bool IsSlow = false)
{
    cAnswerFinder Finder;
    Texts Found;
    const auto Take = [&] {
        for (const std::string& Line : Finder.TakeLines())
            Found.push_back(Line);
    };
    for (std::size_t i = 0; IsSlow && i < Bytes.size(); ++i) {
        Add(Finder, Bytes.substr(i, 1));
        Take();
    }
    if (!IsSlow) Add(Finder, Bytes);
    Finder.Settle();
    Take();
    Finder.Settle(Found.empty());
    Take();
    return Found;
}

// A whole frame with Text within its body.
std::string FrameWith(const std::string& Text)
{
    std::string Frame = PlainFrame(1000, 60);
    return Frame.replace(20, Text.size(), Text);
}

const std::string Answer = "#MODE: 2,40,0\r";
const std::string Table = "#WLDEVCFG: 0,1,00B9,048D,0013\r\n# WLDEVCFG : 1,0,00F3,048D,0013 \r";
} // namespace

TEST_CASE("answers are found in single bytes, among frames and in lines that frames interrupt, and nothing else is")
{
    const std::string Frame = LongFrame(5000);
    std::string Woven;
    for (const char C : Answer)
        Woven += Frame + C;
    const std::tuple<const char*, std::string, Texts> Cases[] = {
        {"alone", Answer, {"#MODE: 2,40,0"}},
        {"with a tab", "#MODE:\t2\r", {"#MODE:\t2"}},
        {"between frames", Frame + Answer + Frame, {"#MODE: 2,40,0"}},
        {"several lines", Frame + Table, {"#WLDEVCFG: 0,1,00B9,048D,0013", "# WLDEVCFG : 1,0,00F3,048D,0013"}},
        {"a frame behind each byte", Woven + Frame, {"#MODE: 2,40,0"}},
        {"behind the rest of a frame", "\x01\x23\x0d" + Answer, {"#MODE: 2,40,0"}},
        {"a line without a key behind an answer", Answer + "OK\r", {"#MODE: 2,40,0", "OK"}},
        {"no CR yet", Frame + "#MODE: 2,4", {}},
        {"frames alone", Frame + Frame, {}},
        {"a text like an answer in a frame", FrameWith(Answer) + Frame, {}},
        {"the same in the last frame", Frame + FrameWith(Answer), {}},
        {"the same in a frame that breaks off", FrameWith(Answer).substr(0, 50) + Frame, {}},
        {"a line without a key among frames", Frame + "OK\r" + Frame, {}},
    };
    for (const auto& [Name, Bytes, Expected] : Cases) {
        CAPTURE(std::string(Name));
        CHECK(Lines(Bytes) == Expected);
        CHECK(Lines(Bytes, true) == Expected);
    }
}

TEST_CASE("an answer is found whole behind a frame that breaks off at any byte, whether frames follow or not")
{
    for (const std::string& Frame : {LongFrame(77777), PlainFrame(1000, 120), FrameWith("#AB: 1")})
        for (std::size_t Cut = 0; Cut < Frame.size(); ++Cut) {
            const std::string Torn = Frame.substr(0, Cut);
            CAPTURE(Cut);
            CHECK(Lines(Frame + Torn + Answer) == Texts{"#MODE: 2,40,0"});
            CHECK(Lines(Frame + Torn + Table).size() == 2);
            // Also where it is the rest of that frame as far as can be seen: once the wait for it is over.
            CHECK(Lines(Torn + Answer + Frame) == Texts{"#MODE: 2,40,0"});
        }
}

TEST_CASE("no bytes of frames are taken for an answer, wherever a stream is joined and broken off")
{
    std::mt19937 Random(1);
    std::string Stream;
    for (int i = 0; i < 3000; ++i) {
        std::string Frame = PlainFrame(i * 40, 80);
        for (std::size_t k = 9; k < Frame.size(); ++k)
            Frame[k] = static_cast<char>(Random() % 128);
        const std::size_t Lost = Random() % 4 == 0 ? Random() % Frame.size() : 0;
        Stream += Frame.substr(0, Frame.size() - Lost);
    }
    for (std::size_t From = 0; From < 300; From += 7)
        CHECK(Lines(Stream.substr(From)) == Texts{});
}
