// Texts that are compared with a file of tests/golden as a whole.
#pragma once

#include "support/Case.h"

#include <cstdlib>

/// Checks that the lines are those of the golden file. With SKARVELIN_WRITE_GOLDEN in the environment the file is
/// written instead: look at the difference before it is committed.
inline void CheckGolden(const std::string& Name, const Texts& Lines)
{
    const std::string Path = SOURCE_FOLDER "/tests/golden/" + Name;
    std::string Text;
    for (const std::string& Line : Lines)
        Text += Line + "\n";
    if (std::getenv("SKARVELIN_WRITE_GOLDEN")) REQUIRE(SaveWhole(Path, Text));
    const auto Golden = ReadWhole(Path);
    REQUIRE(Golden);
    // The first line that differs says more than two long texts.
    for (std::size_t From = 0, i = 0; From < Golden->size() && i < Lines.size(); ++i) {
        const std::size_t End = Golden->find('\n', From);
        CAPTURE(i);
        REQUIRE(Lines[i] == Golden->substr(From, End - From));
        From = End + 1;
    }
    CHECK(Text == *Golden);
}
