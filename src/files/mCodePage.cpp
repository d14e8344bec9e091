// The two legacy code pages and the way between them and UTF-8.
#include "files/mCodePage.h"

#include "core/mSettings.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace {
using CodePage = std::array<char16_t, 128>; // characters of the bytes from 128 on

// Bytes that a page leaves undefined stand for the code points of the same number, so that they come back unchanged.
constexpr CodePage MakeLatin()
{
    constexpr std::array<char16_t, 32> Low = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                              0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                              0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                              0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    CodePage Page{};
    for (std::size_t i = 0; i < Page.size(); ++i)
        Page[i] = i < Low.size() ? Low[i] : static_cast<char16_t>(128 + i);
    return Page;
}

constexpr CodePage MakeCyrillic()
{
    constexpr std::array<char16_t, 64> Low = {
        0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021, 0x20AC, 0x2030, 0x0409, 0x2039, 0x040A,
        0x040C, 0x040B, 0x040F, 0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x0098, 0x2122,
        0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F, 0x00A0, 0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6,
        0x00A7, 0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407, 0x00B0, 0x00B1, 0x0406, 0x0456,
        0x0491, 0x00B5, 0x00B6, 0x00B7, 0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457};
    CodePage Page{};
    for (std::size_t i = 0; i < Page.size(); ++i)
        Page[i] = i < Low.size() ? Low[i] : static_cast<char16_t>(0x0410 + i - Low.size());
    return Page;
}

constexpr CodePage Latin = MakeLatin();
constexpr CodePage Cyrillic = MakeCyrillic();

const CodePage& LegacyPage()
{
    if (gCodePage == 1251) return Cyrillic;
    if (gCodePage == 1252) return Latin;
    return gLanguage == 1 ? Cyrillic : Latin;
}

bool IsAscii(std::string_view Text)
{
    return std::all_of(Text.begin(), Text.end(), [](char C) { return static_cast<unsigned char>(C) < 128; });
}

// Takes the next character off UTF-8 text; nothing when the text is not valid there.
std::optional<char32_t> TakeCharacter(std::string_view& Text)
{
    const auto Lead = static_cast<unsigned char>(Text.front());
    const std::size_t Length = Lead < 0x80   ? 1
                               : Lead < 0xC2 ? 0
                               : Lead < 0xE0 ? 2
                               : Lead < 0xF0 ? 3
                               : Lead < 0xF5 ? 4
                                             : 0;
    if (Length == 0 || Length > Text.size()) return {};
    char32_t Character = Length == 1 ? Lead : Lead & (0x7FU >> Length);
    for (std::size_t i = 1; i < Length; ++i) {
        const auto Byte = static_cast<unsigned char>(Text[i]);
        if ((Byte & 0xC0U) != 0x80) return {};
        Character = (Character << 6) | (Byte & 0x3FU);
    }
    constexpr std::array<char32_t, 5> Least = {0, 0, 0x80, 0x800, 0x10000};
    if (Character < Least[Length] || Character > 0x10FFFF || (Character >= 0xD800 && Character < 0xE000)) return {};
    Text.remove_prefix(Length);
    return Character;
}

bool IsUtf8(std::string_view Text)
{
    while (!Text.empty())
        if (!TakeCharacter(Text)) return false;
    return true;
}

// The characters of both pages lie below 0x10000.
void AppendUtf8(std::string& Text, char16_t Character)
{
    if (Character < 0x800)
        Text += static_cast<char>(0xC0U | (Character >> 6));
    else {
        Text += static_cast<char>(0xE0U | (Character >> 12));
        Text += static_cast<char>(0x80U | ((Character >> 6) & 0x3FU));
    }
    Text += static_cast<char>(0x80U | (Character & 0x3FU));
}

std::optional<std::string> ToLegacy(std::string_view Text)
{
    const CodePage& Page = LegacyPage();
    std::string Bytes;
    Bytes.reserve(Text.size());
    while (!Text.empty()) {
        const auto Character = TakeCharacter(Text);
        if (!Character) return {};
        if (*Character < 128) {
            Bytes += static_cast<char>(*Character);
            continue;
        }
        const auto Found = std::find(Page.begin(), Page.end(), *Character);
        if (Found == Page.end()) return {};
        Bytes += static_cast<char>(128 + (Found - Page.begin()));
    }
    return Bytes;
}
} // namespace

std::string DecodeText(std::string_view Bytes, TextEncoding& Encoding)
{
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    if (IsAscii(Bytes)) {
        Encoding = TextEncoding::Ascii;
        return std::string(Bytes);
    }
    if (IsUtf8(Bytes)) {
        Encoding = TextEncoding::Utf8;
        if (Bytes.starts_with(ByteOrderMark)) Bytes.remove_prefix(ByteOrderMark.size());
        return std::string(Bytes);
    }
    Encoding = TextEncoding::Legacy;
    const CodePage& Page = LegacyPage();
    std::string Text;
    Text.reserve(Bytes.size() + Bytes.size() / 8);
    for (const char C : Bytes) {
        const auto Byte = static_cast<unsigned char>(C);
        if (Byte < 128)
            Text += C;
        else
            AppendUtf8(Text, Page[Byte - 128U]);
    }
    return Text;
}

std::string EncodeText(std::string_view Text, TextEncoding Encoding)
{
    if (Encoding == TextEncoding::Utf8 || IsAscii(Text)) return std::string(Text);
    return ToLegacy(Text).value_or(std::string(Text));
}
