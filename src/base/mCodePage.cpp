// The two legacy code pages and the way between them and UTF-8.
#include "base/mCodePage.h"

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

const CodePage& Characters(LegacyPage Page)
{
    return Page == LegacyPage::Cyrillic ? Cyrillic : Latin;
}

bool IsAscii(std::string_view Text)
{
    unsigned Bits = 0;
    for (const char C : Text)
        Bits |= static_cast<unsigned char>(C);
    return Bits < 128;
}

// Takes the next character off UTF-8 text; nothing when the text is not valid there.
std::optional<char32_t> TakeCharacter(std::string_view& Text)
{
    const auto Lead = static_cast<unsigned char>(Text.front());
    if (Lead < 128) {
        Text.remove_prefix(1);
        return Lead;
    }
    const std::size_t Length = Lead < 0xC2 ? 0 : Lead < 0xE0 ? 2 : Lead < 0xF0 ? 3 : Lead < 0xF5 ? 4 : 0;
    if (Length == 0 || Length > Text.size()) return {};
    char32_t Character = Lead & (0x7FU >> Length);
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

// Takes a byte that is no part of a character; it stands for what it is in the legacy code page.
char TakeStray(std::string_view& Text)
{
    const char Byte = Text.front();
    Text.remove_prefix(1);
    return Byte;
}

// Bytes of the legacy code page as UTF-8.
void AppendLegacy(std::string& Text, std::string_view Bytes, const CodePage& Page)
{
    for (const char C : Bytes) {
        const auto Byte = static_cast<unsigned char>(C);
        if (Byte < 128)
            Text += C;
        else
            AppendUtf8(Text, Page[Byte - 128U]);
    }
}

// Nothing when a character is not in the page.
std::optional<std::string> ToLegacy(std::string_view Text, const CodePage& Page)
{
    std::string Bytes;
    Bytes.reserve(Text.size());
    while (!Text.empty()) {
        const auto Character = TakeCharacter(Text);
        if (!Character) {
            Bytes += TakeStray(Text);
            continue;
        }
        const auto Found = *Character < 128 ? Page.end() : std::find(Page.begin(), Page.end(), *Character);
        if (*Character >= 128 && Found == Page.end()) return {};
        Bytes += static_cast<char>(*Character < 128 ? *Character : 128U + static_cast<unsigned>(Found - Page.begin()));
    }
    return Bytes;
}

// Text with its stray bytes made characters.
std::string ToUtf8(std::string_view Text, const CodePage& Page)
{
    std::string Whole;
    Whole.reserve(Text.size());
    while (!Text.empty()) {
        const std::string_view Rest = Text;
        if (TakeCharacter(Text))
            Whole += Rest.substr(0, Rest.size() - Text.size());
        else
            AppendLegacy(Whole, std::string(1, TakeStray(Text)), Page);
    }
    return Whole;
}
} // namespace

std::string DecodeText(std::string Bytes, TextEncoding& Encoding, LegacyPage Page)
{
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    Encoding = TextEncoding::Ascii;
    if (IsAscii(Bytes)) return Bytes;
    Encoding = TextEncoding::Utf8;
    if (IsUtf8(Bytes)) {
        if (Bytes.starts_with(ByteOrderMark)) Bytes.erase(0, ByteOrderMark.size());
        return Bytes;
    }
    Encoding = TextEncoding::Legacy;
    std::string Text;
    Text.reserve(Bytes.size() + Bytes.size() / 8);
    AppendLegacy(Text, Bytes, Characters(Page));
    return Text;
}

std::string EncodeText(std::string Text, TextEncoding Encoding, LegacyPage Page)
{
    if (IsAscii(Text)) return Text;
    if (Encoding != TextEncoding::Utf8) {
        auto Bytes = ToLegacy(Text, Characters(Page));
        // Bytes that happen to be valid UTF-8 would be read as other characters.
        if (Bytes && !IsUtf8(*Bytes)) return std::move(*Bytes);
    }
    return IsUtf8(Text) ? Text : ToUtf8(Text, Characters(Page));
}
