// A long recording made for benchmarks: 80 channels in frames of 195 bytes, with the session that describes it.
#pragma once

#include <string>

inline constexpr int BenchChannels = 80;
inline constexpr int FrameBytes = 195;

/// A folder of its own for the benchmark's files, removed at the end of the program.
const std::string& BenchFolder();

/// Fills gFile with the channels of the recording, sets the globals of a program without a window.
void MakeBenchSession();

/// Path of a recording of that many frames at 50 Hz, made at the first call.
const std::string& BenchRecording(int Frames);
