// The rate of a recording's frames by their own clock, and the setting gDataFreq that times are counted by.
#pragma once

#include <optional>
#include <string>

/// Frames per second by the time stamps of the first frames of a recording, lost frames aside. Nothing when it cannot
/// be read, has too few frames or, as those of the old slave, no clock that a rate could be read from.
std::optional<double> FrameRate(const std::string& Path);

/// The rate by which the open session says that its recordings are sampled; nothing when it does not say.
std::optional<double> SessionRate();

/// Whether a rate is more than 2 % off gDataFreq.
bool IsOffDataFreq(double Rate);

/// A rate as it is proposed, as "100" or "33.33".
std::string RateText(double Rate);

/// When a rate is off gDataFreq: asks once which of the two is meant, proposing Rate, and keeps the answer in the
/// setting. Who says so, as "The frames of a.qvn come". The same question is not asked again as long as the program
/// runs.
void AskDataFreq(double Rate, const std::string& Who);
