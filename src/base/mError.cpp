// The checked helpers that end a command when a formula cannot be evaluated, and the operating system's reasons.
#include "base/mError.h"

#include <cmath>
#include <cstring>
#include <limits>

std::string SystemReason(int Error)
{
    const char* Words = strerrordesc_np(Error);
    return Words ? Words : "Unknown error";
}

double Div(double Num, double Den)
{
    if (Den == 0.0) throw RunError("Division by zero");
    return Num / Den;
}

double Root(double X)
{
    if (X < 0.0) throw RunError("Square root of a negative number");
    return std::sqrt(X);
}

int16_t ToInt16(int64_t X)
{
    using Limits = std::numeric_limits<int16_t>;
    if (X < Limits::min() || X > Limits::max()) throw RunError("Overflow of a 16-bit number");
    return static_cast<int16_t>(X);
}

void CheckIndex(std::ptrdiff_t Index, std::size_t Size)
{
    if (Index < 0 || static_cast<std::size_t>(Index) >= Size) throw RunError("Index out of range");
}
