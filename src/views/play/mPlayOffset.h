// The offset between a video and the data of a sample, kept in the session: a row of gVideoID holds it in its first
// spare number, in seconds to a hundredth.
#pragma once

#include "views/play/cPlay.h"

#include <string>

/// The offset that is kept for a sample, row of Desc, and a video's path; 0 when there is none.
double KeptOffset(int Sample, const std::string& VideoFN);

/// Keeps the offset of what is played with its sample and video, and writes the session. Without a sample or a video
/// there is nothing to keep it with, and nothing is done. False when the session cannot be written (reported to the
/// user).
bool KeepOffset(const cPlay& Play);
