#include "files/mFrame.h"

#include "support/Case.h"
#include "support/Hex.h"

namespace {
// A source that gives the bytes of a text in pieces of that size.
ByteSource Pieces(const std::string& Text, std::size_t Size)
{
    return ByteSource([Bytes = Hex(Text), Size, Given = std::size_t{0}](std::span<uint8_t> Room) mutable {
        const std::size_t Count = std::min({Size, Bytes.size() - Given, Room.size()});
        std::copy_n(Bytes.begin() + static_cast<std::ptrdiff_t>(Given), Count, Room.begin());
        Given += Count;
        return Count;
    });
}

// Each frame as the position behind it, its size and its first byte; a "-" for one that is not whole.
std::string Frames(ByteSource Source)
{
    std::string Text;
    while (const auto Taken = TakeFrame(Source))
        Text += std::to_string(Source.Taken()) + ":" + std::to_string(Taken->Bytes.size()) + "," +
                std::to_string(Taken->Bytes[0]) + (Taken->IsWhole() ? " " : "- ");
    return Text;
}
} // namespace

TEST_CASE("frames are found behind any bytes below 128, however the bytes arrive")
{
    const std::string Stream = "00 7F 80 FF 01 00 11 12 7F FF 00 00 00 11 90 00 00 00 80 80 00 02 00 11 12";
    for (const std::size_t Size : {1U, 2U, 3U, 7U, 100U}) {
        CAPTURE(Size);
        CHECK(Frames(Pieces(Stream, Size)) == "8:6,128 14:5,255 19:5,144 25:6,128- ");
    }
    CHECK(Frames(Pieces("00 01 7F", 2)).empty());
    CHECK(Frames(Pieces("80 00", 2)) == "2:2,128- ");
    CHECK(Frames(Pieces("", 2)).empty());
}

TEST_CASE("the longest frame fits into the buffer")
{
    std::string One = "80 00 FF FF ";
    for (int i = 0; i < 32896; ++i)
        One += "01 ";
    CHECK(Frames(Pieces("00 " + One + One + One, 1000)) == "32901:32900,128 65801:32900,128 98701:32900,128 ");
}
