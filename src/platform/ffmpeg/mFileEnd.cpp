// The sizes of the outermost parts: boxes of mp4, chunks of avi, the segment of mkv.
#include "platform/ffmpeg/mFileEnd.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace {
class File
{
public:
    explicit File(const std::string& Path) : Bytes(Path, std::ios::binary)
    {
        std::error_code Error;
        const std::uintmax_t Found = std::filesystem::file_size(Path, Error);
        Size = Error ? 0 : Found;
    }

    /// Text at a place, empty where there is not that much.
    std::string At(uint64_t Place, std::size_t Count)
    {
        std::string Text(Count, '\0');
        Bytes.clear();
        Bytes.seekg(static_cast<std::streamoff>(Place));
        return Bytes.read(Text.data(), static_cast<std::streamsize>(Count)) ? Text : "";
    }

    /// Number of so many bytes, the highest first; 0 where there is none.
    uint64_t Big(uint64_t Place, std::size_t Count)
    {
        uint64_t Number = 0;
        for (const char Each : At(Place, Count))
            Number = Number << 8 | static_cast<uint8_t>(Each);
        return Number;
    }

    uint64_t Size = 0;

private:
    std::ifstream Bytes;
};

// A chunk of the file's format and, in files above 1 GB, others behind it.
bool BreaksOffRiff(File& In)
{
    constexpr uint64_t Head = 8;
    for (uint64_t Place = 0; In.At(Place, 4) == "RIFF";) {
        std::string Number = In.At(Place + 4, 4);
        std::reverse(Number.begin(), Number.end());
        uint64_t Length = 0;
        for (const char Each : Number)
            Length = Length << 8 | static_cast<uint8_t>(Each);
        Place += Head + Length;
        if (Place > In.Size) return true;
    }
    return false;
}

// An mp4 is shown by the table in its box moov, which cameras write last; fragments have tables of their own.
bool BreaksOffBoxes(File& In)
{
    constexpr uint64_t Head = 8;
    bool HasTable = false;
    for (uint64_t Place = 0; Place < In.Size;) {
        uint64_t Length = In.Big(Place, 4);
        HasTable |= In.At(Place + 4, 4) == "moov";
        if (Length == 0) break; // to the end of the file
        if (Length == 1) Length = In.Big(Place + Head, 8);
        if (Length < Head || Length > In.Size - Place) return true;
        Place += Length;
    }
    return !HasTable;
}

// A number whose first byte tells by its leading zeros how many follow; Place moves behind it. All ones: not known.
uint64_t TakeNumber(File& In, uint64_t& Place)
{
    const auto First = static_cast<uint8_t>(In.Big(Place, 1));
    const auto Count = static_cast<std::size_t>(std::countl_zero(First)) + 1;
    const uint64_t Number = In.Big(Place, Count) & ~(uint64_t{1} << (7 * Count));
    Place += Count;
    const uint64_t Unknown = (uint64_t{1} << (7 * Count)) - 1;
    return Count > 8 || Number == Unknown ? 0 : Number;
}

bool BreaksOffSegment(File& In)
{
    constexpr uint64_t Name = 4;
    constexpr uint64_t Segment = 0x18538067;
    uint64_t Place = Name;
    const uint64_t Head = TakeNumber(In, Place);
    Place += Head;
    if (In.Big(Place, Name) != Segment) return false;
    Place += Name;
    const uint64_t Length = TakeNumber(In, Place);
    return Length > In.Size - std::min(Place, In.Size);
}
} // namespace

bool BreaksOff(const std::string& Path)
{
    struct Kind
    {
        uint64_t Place;
        std::string_view Mark;
        bool (*BreaksOff)(File& In);
    };
    constexpr std::array<Kind, 3> Kinds = {
        {{0, "RIFF", BreaksOffRiff}, {4, "ftyp", BreaksOffBoxes}, {0, "\x1A\x45\xDF\xA3", BreaksOffSegment}}};
    File In(Path);
    for (const Kind& Each : Kinds)
        if (In.At(Each.Place, Each.Mark.size()) == Each.Mark) return Each.BreaksOff(In);
    return false;
}
