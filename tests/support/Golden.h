// Texts that are compared with a file of tests/golden as a whole.
#pragma once

#include "support/Digest.h"

#include <cstdlib>

/// Whether two lines are the same but for the last digits of numbers with decimals, in which compilers may differ.
/// Numbers of few digits have as many of them.
inline bool IsSameLine(const std::string& A, const std::string& B)
{
    constexpr double Relative = 1e-6, Absolute = 1e-7;
    constexpr std::ptrdiff_t ManyDigits = 7;
    const char *X = A.data(), *Y = B.data();
    const char *const EndX = X + A.size(), *const EndY = Y + B.size();
    while (X < EndX && Y < EndY) {
        double P = 0, Q = 0;
        const char* const PastX = std::from_chars(X, EndX, P).ptr;
        const char* const PastY = std::from_chars(Y, EndY, Q).ptr;
        const bool HasDecimals = std::string_view(X, PastX).find_first_of(".e") != std::string::npos ||
                                 std::string_view(Y, PastY).find_first_of(".e") != std::string::npos;
        const bool IsAsLong = PastX - X == PastY - Y || std::min(PastX - X, PastY - Y) > ManyDigits;
        if (HasDecimals && IsAsLong && std::fabs(P - Q) <= Absolute + Relative * std::max(std::fabs(P), std::fabs(Q))) {
            X = PastX;
            Y = PastY;
        } else if (*X++ != *Y++) {
            return false;
        }
    }
    return X == EndX && Y == EndY;
}

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
    INFO("Where the change is meant, SKARVELIN_WRITE_GOLDEN=1 in the environment writes the file anew.");
    const Texts Now = LinesOf(Text), Known = LinesOf(*Golden);
    for (std::size_t i = 0; i < std::min(Now.size(), Known.size()); ++i) {
        CAPTURE(i);
        if (!IsSameLine(Now[i], Known[i])) REQUIRE(Now[i] == Known[i]);
    }
    CHECK(Now.size() == Known.size());
}
