// How digitising and anthropometry begin: a video window, and beside it the window with the numbers.
#pragma once

class f1Video;
class frmMain;

/// Lets the buttons of a video window begin digitising.
void LinkDigitising(frmMain& Main, f1Video& Video);

/// Asks for a video and digitises it: the body, or angles where the session has no points.
void DigitiseVideo(frmMain& Main);

/// Asks for a picture and measures body segments on it.
void MeasureBody(frmMain& Main);
