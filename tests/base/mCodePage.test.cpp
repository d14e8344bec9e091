// Code pages: every byte of a legacy file comes back, UTF-8 stays UTF-8, and no character is ever replaced.
#include "base/mCodePage.h"
#include "core/mSettings.h"
#include "support/Case.h"

namespace {

std::string Decoded(const std::string& Bytes)
{
    TextEncoding Encoding{};
    return DecodeText(Bytes, Encoding, TextPage());
}
} // namespace

TEST_CASE_FIXTURE(FreshState,
                  "all bytes of both legacy pages come back, the undefined ones as code points of their number")
{
    const std::tuple<int16_t, int16_t, const char*, const char*> Cases[] = {
        {0, 0, "M\xFCller \x80 \x81\x8D\x8F\x90\x9D \x9F\xFF", "Müller € \u0081\u008D\u008F\u0090\u009D Ÿÿ"},
        {1252, 1, "\x8A\x92\xA0", "Š’\u00A0"},
        {0, 1, "\xCF\xE5\xF2\xF0 \xB9\x88\x98\xA8\xFF", "Петр №€\u0098Ёя"},
        {1251, 0, "\x80\x90\xBF\xC0", "ЂђїА"}};
    for (const auto& [Page, Language, Bytes, Text] : Cases) {
        CAPTURE(Text);
        gCodePage = Page;
        gLanguage = Language;
        TextEncoding Encoding{};
        CHECK(DecodeText(Bytes, Encoding, TextPage()) == Text);
        CHECK(Encoding == TextEncoding::Legacy);
        CHECK(EncodeText(Text, TextEncoding::Legacy, TextPage()) == Bytes);
        std::string All;
        for (int Byte = 128; Byte < 256; ++Byte)
            All += static_cast<char>(Byte);
        CHECK(EncodeText(Decoded(All), TextEncoding::Legacy, TextPage()) == All);
    }
}

TEST_CASE_FIXTURE(FreshState,
                  "text goes to the legacy page when all of it fits and will be taken for that, otherwise to UTF-8")
{
    const std::tuple<const char*, TextEncoding, const char*> Cases[] = {
        {"plain", TextEncoding::Utf8, "plain"},
        {"Zürich", TextEncoding::Ascii, "Z\xFCrich"},
        {"Zürich", TextEncoding::Utf8, "Zürich"},
        {"Łódź", TextEncoding::Legacy, "Łódź"},
        {"Zürich 漕艇 \xF0\x9F\x9A\xA3", TextEncoding::Ascii, "Zürich 漕艇 \xF0\x9F\x9A\xA3"},
        {"Ã¼", TextEncoding::Legacy, "Ã¼"},          // its legacy bytes are the UTF-8 of another text
        {"\u0080", TextEncoding::Legacy, "\u0080"},  // byte 128 is the euro sign
        {"ü\xFC", TextEncoding::Legacy, "\xFC\xFC"}, // a stray byte is one of the page
        {"Ł\xFC", TextEncoding::Legacy, "Łü"},
        {"\xED\xA0\x80", TextEncoding::Utf8, "í\u00A0€"}, // half of a surrogate pair
    };
    for (const auto& [Text, Encoding, Bytes] : Cases) {
        CAPTURE(Text);
        CHECK(EncodeText(Text, Encoding, TextPage()) == Bytes);
        CHECK(EncodeText(Decoded(Bytes), Encoding, TextPage()) == Bytes);
    }
}

TEST_CASE_FIXTURE(FreshState, "UTF-8 is known by being valid to the last byte, with or without its mark")
{
    TextEncoding Encoding{};
    CHECK(DecodeText("\xEF\xBB\xBFMain", Encoding, TextPage()) == "Main");
    CHECK(Encoding == TextEncoding::Utf8);
    for (const char* Invalid : {"ü\xC3", "\xC0\xAF", "\xE0\x80\xAF", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80"}) {
        DecodeText(Invalid, Encoding, TextPage());
        CHECK(Encoding == TextEncoding::Legacy);
    }
}
