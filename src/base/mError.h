// Run-time failures: the one exception of the engine and the checked helpers that throw it; reasons of the system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

/// A failure that ends the running command: no data have been changed when it is thrown. Caught by Guard only.
class RunError : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// Why the operating system refused, by its error number: in its English words whatever the locale.
std::string SystemReason(int Error);

/// Num / Den. Throws RunError "Division by zero" when Den is 0.
double Div(double Num, double Den);

/// Square root of X. Throws RunError when X is negative.
double Root(double X);

/// X as a 16-bit integer. Throws RunError "Overflow" when it does not fit.
int16_t ToInt16(int64_t X);

/// Throws RunError "Index out of range" unless 0 <= Index < Size.
void CheckIndex(std::ptrdiff_t Index, std::size_t Size);

/// Element Index of a container. Throws RunError when there is none.
template <class Container>
auto& At(Container& Items, std::ptrdiff_t Index)
{
    CheckIndex(Index, Items.size());
    return Items[static_cast<std::size_t>(Index)];
}

/// Num / Den, or 0 when Den is 0: the division of all rates and mean values.
inline double SafeDiv(double Num, double Den)
{
    return Den != 0.0 ? Num / Den : 0.0;
}
