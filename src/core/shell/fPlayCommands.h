// The commands that play stored samples and recordings, alone and beside a video.
#pragma once

#include "core/shell/fWindows.h"
#include "views/play/cPlay.h"

void PlayPrimaryFile(frmMain& Main);
void PlayTypicalData(frmMain& Main);
void PlayAnimation(frmMain& Main);
void PlayNorm(frmMain& Main);
void PlayLoad(frmMain& Main);

/// Plays the sample that was chosen, in the mode of Args. With Kind, a video window's name, the video File is opened
/// above it; without File it is the sample's own, or one that the user chooses.
void PlaySample(frmMain& Main, const WindowArgs& Args, int16_t Sample);

/// Puts the video that is open into what is played, if there is one.
void TakeVideo(const frmMain& Main, PlayData& Data);
